#pragma once

#include "screen/LabelItem.h"
#include "screen/fonts/Fonts.h"

/// xLabel: Label(form, parent, name, index, caption), on the captions' colour.
class Label : public LabelItem {
  public:
    Label(Form& form, QWidget& parent, QString name, int index, const QString& caption)
        : LabelItem(form, parent, QStringLiteral("xLabel"), std::move(name), index) {
        SetBackColor(kCaptionColor);
        SetEdge(Edge::Line);
        Show(caption);
    }

    QString Caption() const override { return Shown(); }
    void SetCaption(const QString& caption) override { Show(caption); }
};
