#include "screen/Panel.h"

#include <QStringList>
#include <algorithm>
#include <tuple>
#include <vector>

QString Panel::SpokenDescription() const {
    if (!HoldsOthers()) return LabelItem::SpokenDescription();
    return isVisible() && !Shown().isEmpty() ? Shown() : TextsOnIt();
}

/// What can be seen on the panel, line by line. Put together only when a tool asks, so that writing a row costs
/// nothing.
QString Panel::TextsOnIt() const {
    std::vector<const LabelItem*> items;
    for (const QObject* child : children()) {
        const auto* item = dynamic_cast<const LabelItem*>(child);
        if (item != nullptr && item->isVisible() && !item->Shown().isEmpty()) items.push_back(item);
    }
    std::stable_sort(items.begin(), items.end(), [](const LabelItem* a, const LabelItem* b) {
        return std::make_tuple(a->y(), a->x()) < std::make_tuple(b->y(), b->x());
    });
    QStringList texts;
    for (const LabelItem* item : items) texts << item->Shown();
    return texts.join(u' ');
}
