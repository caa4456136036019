#include "screen/PlainControls.h"

#include <QSignalBlocker>
#include <QWheelEvent>

#include "screen/Accessibility.h"
#include "screen/Form.h"

using namespace Qt::StringLiterals;

ComboItem::ComboItem(Form& form, QWidget& parent, QString name)
    : QComboBox(&parent), Control(form, *this, u"ComboBox"_s, std::move(name), -1) {
    InstallAccessibleCombo();
    SetTabStop(true);
    setAccessibleName(Name());
    setFocusPolicy(Qt::StrongFocus);
    setMaxVisibleItems(20);
    connect(this, &QComboBox::activated, this, [this] { EmitByUser(Click); });
}

void ComboItem::SetListIndex(int index) {
    const bool inside = 0 <= index && index < count();
    const int wanted = inside ? index : -1;
    if (wanted == currentIndex()) return;
    {
        const QSignalBlocker quiet(this);
        setCurrentIndex(wanted);
    }
    // Handlers copy ListIndex to the paired number; -1 would overwrite a number beyond the list.
    if (inside && Click) Click();
}

void ComboItem::ClearList() {
    const QSignalBlocker quiet(this);
    clear();
}

void ComboItem::AddItem(const QString& text) {
    const QSignalBlocker quiet(this);
    const int shown = currentIndex();
    addItem(text);
    setCurrentIndex(shown);
}

void ComboItem::showPopup() {
    if (Owner().TakesInput(*this)) QComboBox::showPopup();
}

void ComboItem::wheelEvent(QWheelEvent* event) { event->ignore(); }

void FillClassList(Control& number, Control& list, const QStringList& names) {
    list.ClearList();
    for (const QString& name : names) list.AddItem(name);
    list.AddItem(QStringLiteral("全て"));
    number.SetMinValue(0);
    number.SetMaxValue(static_cast<int>(names.size()));
}

ScrollItem::ScrollItem(Form& form, QWidget& parent, QString name)
    : QScrollBar(Qt::Vertical, &parent), Control(form, *this, u"VScrollBar"_s, std::move(name), -1) {
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(Name());
    setContextMenuPolicy(Qt::NoContextMenu);
    connect(this, &QScrollBar::valueChanged, this, [this] { EmitByUser(Change); });
}

void ScrollItem::SetValue(int value) {
    const int before = this->value();
    {
        const QSignalBlocker quiet(this);
        setValue(value);
    }
    if (this->value() != before && Change) Change();
}

void ScrollItem::SetLargeChange(int rows) { setPageStep(rows); }

void ScrollItem::SetPosition(int value, int maxValue) {
    const QSignalBlocker quiet(this);
    setMaximum(maxValue);
    setValue(value);
}

void ScrollItem::wheelEvent(QWheelEvent* event) { event->ignore(); }
