#include "screen/CheckItem.h"

#include <QSignalBlocker>

using namespace Qt::StringLiterals;

CheckItem::CheckItem(Form& form, QWidget& parent, QString name, int index, const QString& caption)
    : QCheckBox(&parent), Control(form, *this, u"CheckBox"_s, std::move(name), index) {
    SetTabStop(true);
    setAccessibleName(Name());
    setFocusPolicy(Qt::StrongFocus);
    SetCaption(caption);
    connect(this, &QCheckBox::toggled, this, [this] { RaiseByUser(Click); });
}

void CheckItem::SetCaption(const QString& caption) {
    caption_ = caption;
    setText(QString(caption).replace(u'&', u"&&"_s));
    setAccessibleDescription(caption);
}

void CheckItem::SetValue(int value) {
    if ((value != 0) == isChecked()) return;
    {
        const QSignalBlocker quiet(this);
        setChecked(value != 0);
    }
    if (Click) Click();
}
