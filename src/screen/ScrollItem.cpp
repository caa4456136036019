#include "screen/ScrollItem.h"

#include "screen/Form.h"

using namespace Qt::StringLiterals;

ScrollItem::ScrollItem(Form& form, QWidget& parent, QString name)
    : QScrollBar(Qt::Vertical, &parent), Control(form, *this, u"VScrollBar"_s, std::move(name), -1) {
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(Name());
    connect(this, &QScrollBar::valueChanged, this, [this] {
        if (!writing_ && Change) Form::RunEvent(Change);
    });
}

void ScrollItem::SetValue(int value) {
    Write([=, this] { setValue(value); });
}
