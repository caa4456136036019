#include "screen/ScrollItem.h"

#include <QSignalBlocker>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

ScrollItem::ScrollItem(Form& form, QWidget& parent, QString name)
    : QScrollBar(Qt::Vertical, &parent), Control(form, *this, u"VScrollBar"_s, std::move(name), -1) {
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(Name());
    setContextMenuPolicy(Qt::NoContextMenu);
    connect(this, &QScrollBar::valueChanged, this, [this] { RaiseByUser(Change); });
}

void ScrollItem::Write(const std::function<void()>& write) {
    const int before = value();
    {
        const QSignalBlocker quiet(this);
        write();
    }
    if (value() != before && Change) Change();
}

void ScrollItem::SetValue(int value) {
    Write([&] { setValue(value); });
}

void ScrollItem::SetMinValue(int value) {
    Write([&] { setMinimum(value); });
}

void ScrollItem::SetMaxValue(int value) {
    Write([&] { setMaximum(value); });
}

void ScrollItem::SetLargeChange(int rows) { setPageStep(rows); }

void ScrollItem::TakePlace(int value, int maxValue) {
    const QSignalBlocker quiet(this);
    setMaximum(maxValue);
    setValue(value);
}

void ScrollItem::wheelEvent(QWheelEvent* event) { event->ignore(); }
