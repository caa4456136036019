#include "screen/CheckItem.h"

#include "screen/Form.h"

using namespace Qt::StringLiterals;

CheckItem::CheckItem(Form& form, QWidget& parent, QString name, int index, const QString& caption)
    : QCheckBox(caption, &parent), Control(form, *this, u"CheckBox"_s, std::move(name), index) {
    setAccessibleName(Name());
    setAccessibleDescription(caption);
    connect(this, &QCheckBox::toggled, this, [this] {
        if (!writing_ && Click) Form::RunEvent(Click);
    });
}

void CheckItem::SetValue(int value) {
    if (value == Value()) return;
    writing_ = true;
    setChecked(value != 0);
    writing_ = false;
    if (Click) Click();
}
