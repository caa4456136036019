#pragma once

#include "screen/LabelItem.h"
#include "screen/fonts/Fonts.h"

/// SSPanel: Panel(form, parent, name, index, caption). Holds other controls or shows its caption in the middle.
/// Assistive tools are told the caption as of a label. Of a panel that holds others they are told the texts on it: that
/// is how they read a row of the list.
class Panel : public LabelItem {
  public:
    Panel(Form& form, QWidget& parent, QString name, int index, const QString& caption)
        : LabelItem(form, parent, QStringLiteral("SSPanel"), std::move(name), index) {
        setAlignment(Qt::AlignCenter);
        SetEdge(Edge::Raised);
        Show(caption);
    }

    /// As the title of items or columns: on the captions' colour, in a fine line.
    void SetTitle() {
        SetBackColor(kCaptionColor);
        SetEdge(Edge::Line);
    }

    QString Caption() const override { return Shown(); }
    void SetCaption(const QString& caption) override { Show(caption); }

    QAccessible::Role SpokenRole() const override {
        return HoldsOthers() ? QAccessible::Grouping : LabelItem::SpokenRole();
    }
    QString AccessibleName() const override { return HoldsOthers() ? Name() : LabelItem::AccessibleName(); }
    QString SpokenDescription() const override;

  private:
    bool HoldsOthers() const { return !children().isEmpty(); }
    QString TextsOnIt() const;
};
