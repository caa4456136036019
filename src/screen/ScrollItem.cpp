#include "screen/ScrollItem.h"

#include <QSignalBlocker>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

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

void ScrollItem::TakePlace(int value, int maxValue) {
    const QSignalBlocker quiet(this);
    setMaximum(maxValue);
    setValue(value);
}

void ScrollItem::wheelEvent(QWheelEvent* event) { event->ignore(); }
