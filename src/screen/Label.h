#pragma once

#include "screen/FlatItem.h"
#include "screen/Fonts.h"

/// xLabel: Label(form, parent, name, index, caption), on the captions' colour.
class Label : public FlatItem {
  public:
    Label(Form& form, QWidget& parent, QString name, int index, const QString& caption)
        : FlatItem(form, parent, QStringLiteral("xLabel"), std::move(name), index) {
        SetBackColor(kCaptionColor);
        SetEdge(Edge::Line);
        Show(caption);
    }

    QString Caption() const override { return Shown(); }
    void SetCaption(const QString& caption) override { Show(caption); }
};
