#include "screen/ComboItem.h"

#include <QSignalBlocker>

#include "screen/Form.h"

using namespace Qt::StringLiterals;

ComboItem::ComboItem(Form& form, QWidget& parent, QString name)
    : QComboBox(&parent), Control(form, *this, u"ComboBox"_s, std::move(name), -1) {
    setAccessibleName(Name());
    setMaxVisibleItems(20);
    connect(this, &QComboBox::currentIndexChanged, this, [this] {
        setAccessibleDescription(currentText());
        if (!writing_ && Click) Form::RunEvent(Click);
    });
}

void ComboItem::SetListIndex(int index) {
    const int shown = index >= 0 && index < count() ? index : -1;
    if (shown == currentIndex()) return;
    writing_ = true;
    setCurrentIndex(shown);
    writing_ = false;
    if (Click) Click();
}

void ComboItem::ClearList() {
    const QSignalBlocker quiet(this);
    clear();
}

void ComboItem::AddItem(const QString& text) {
    const QSignalBlocker quiet(this);
    addItem(text);
    if (count() == 1) setCurrentIndex(-1);  // Qt would choose the first entry by itself
}
