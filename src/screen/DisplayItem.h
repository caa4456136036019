#pragma once

#include "screen/LabelItem.h"

/// An item of a list row: DisplayItem(form, parent, type, name, index). It bears the class name of an input item and
/// takes no focus, no typing and no tab stop.
class DisplayItem : public LabelItem {
  public:
    DisplayItem(Form& form, QWidget& parent, QString typeName, QString name, int index)
        : LabelItem(form, parent, std::move(typeName), std::move(name), index) {
        SetBackColor(palette().color(QPalette::Base));
        SetForeColor(palette().color(QPalette::Text));
        SetEdge(Edge::Sunken);
        SetWrapped(TypeName() == QLatin1StringView("xText"));
    }

    QString Text() const override { return Shown(); }
    void SetText(const QString& text) override {
        if (text == Shown()) return;
        Show(text);
        if (Change) Change();
    }
};
