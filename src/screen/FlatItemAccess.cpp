#include "screen/FlatItemAccess.h"

#include <QAccessibleWidget>

#include "screen/Panel.h"

namespace {

/// Labels and row items: the text is the name, the control's name the description. Qt keeps hidden widgets in the
/// tree with their texts, so a hidden item, such as a PIN that the user may not see, has to give none.
class FlatItemAccess : public QAccessibleWidget {
  public:
    explicit FlatItemAccess(FlatItem& item) : QAccessibleWidget(&item, QAccessible::StaticText), item_(item) {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name) return item_.isVisible() ? item_.Shown() : QString();
        return kind == QAccessible::Description ? item_.Name() : QString();
    }

  private:
    const FlatItem& item_;
};

/// Panels hold others: they bear the control's name and carry the caption as description.
class PanelAccess : public QAccessibleWidget {
  public:
    explicit PanelAccess(Panel& panel) : QAccessibleWidget(&panel, QAccessible::Grouping), panel_(panel) {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name) return panel_.Name();
        return kind == QAccessible::Description && panel_.isVisible() ? panel_.Caption() : QString();
    }

  private:
    const Panel& panel_;
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object) {
    if (auto* panel = dynamic_cast<Panel*>(object)) return new PanelAccess(*panel);
    if (auto* item = dynamic_cast<FlatItem*>(object)) return new FlatItemAccess(*item);
    return nullptr;
}

}  // namespace

void InstallFlatItemAccess() {
    static const bool installed = [] {
        QAccessible::installFactory(MakeAccess);
        return true;
    }();
    static_cast<void>(installed);
}
