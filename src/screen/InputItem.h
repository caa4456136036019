#pragma once

#include <QLineEdit>

#include "screen/Control.h"
#include "screen/ItemDesign.h"

/// xField, xPass and their like: InputItem(form, parent, type, name, index, design).
class InputItem : public QLineEdit, public Control {
  public:
    InputItem(Form& form, QWidget& parent, QString typeName, QString name, int index, ItemDesign design);

    QString Text() const override { return text(); }
    void SetText(const QString& text) override;
    int MaxLength() const override { return design_.maxLength; }
    int MinValue() const override { return design_.minValue; }
    int MaxValue() const override { return design_.maxValue; }
    QColor BackColor() const override { return palette().color(QPalette::Base); }
    void SetBackColor(const QColor& color) override;
    void FocusGiven() override { selectAll(); }

    /// What of a text at a place of the present one may be put in: filtered, converted, cut to the room there is.
    QString Admitted(const QString& inserted, int room) const;

  protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    void OnTextChanged(const QString& text);

    ItemDesign design_;
    bool writing_ = false;
};
