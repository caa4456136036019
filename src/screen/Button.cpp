#include "screen/Button.h"

#include "screen/Form.h"

using namespace Qt::StringLiterals;

Button::Button(Form& form, QWidget& parent, QString name, const QString& caption)
    : QPushButton(&parent), Control(form, *this, u"SSCommand"_s, std::move(name), -1) {
    setAutoDefault(false);
    setAccessibleName(Name());
    SetCaption(caption);
    connect(this, &QPushButton::clicked, this, [this] {
        if (Click) Form::RunEvent(Click);
    });
}

void Button::SetCaption(const QString& caption) {
    setText(QString(caption).replace(u'&', u"&&"_s));
    setAccessibleDescription(caption);
}

void Button::SetForeColor(const QColor& color) {
    if (ForeColor() == color) return;
    QPalette colors = palette();
    colors.setColor(QPalette::Active, QPalette::ButtonText, color);
    colors.setColor(QPalette::Inactive, QPalette::ButtonText, color);
    setPalette(colors);
}

void Button::SetFaceless() { faceless_ = true; }

void Button::paintEvent(QPaintEvent* event) {
    if (!faceless_) QPushButton::paintEvent(event);
}
