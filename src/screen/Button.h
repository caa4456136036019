#pragma once

#include <QPushButton>

#include "screen/Control.h"

/// SSCommand: Button(form, parent, name, caption). Never a default button.
class Button : public QPushButton, public Control {
  public:
    Button(Form& form, QWidget& parent, QString name, const QString& caption);

    /// For a button that only takes the focus: no caption, no edge.
    void SetFaceless();

    QString Caption() const override { return text(); }
    void SetCaption(const QString& caption) override;
    QColor ForeColor() const override { return palette().color(QPalette::Active, QPalette::ButtonText); }
    void SetForeColor(const QColor& color) override;
    bool EnterClicks() const override { return static_cast<bool>(Click); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    bool faceless_ = false;
};
