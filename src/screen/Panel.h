#pragma once

#include "screen/FlatItem.h"

/// SSPanel: Panel(form, parent, name, index, caption). Holds other controls or shows its caption in the middle.
/// Assistive tools are told the caption, or else the texts on the panel: that is how they read a row of the list.
class Panel : public FlatItem {
  public:
    Panel(Form& form, QWidget& parent, QString name, int index, const QString& caption)
        : FlatItem(form, parent, QStringLiteral("SSPanel"), std::move(name), index) {
        setAlignment(Qt::AlignCenter);
        SetEdge(Edge::Raised);
        Show(caption);
    }

    QString Caption() const override { return Shown(); }
    void SetCaption(const QString& caption) override { Show(caption); }

    // Holds others, so it is named like an item and the caption is what is said of it.
    QAccessible::Role SpokenRole() const override { return QAccessible::Grouping; }
    QString SpokenName() const override { return Name(); }
    QString SpokenDescription() const override { return isVisible() && !Shown().isEmpty() ? Shown() : TextsOnIt(); }

  private:
    QString TextsOnIt() const;
};
