#pragma once

#include <QPushButton>

#include "screen/Control.h"

/// SSCommand: Button(form, parent, name, caption). The caption may have several lines. Pressed by mouse, Space or
/// Enter while it has the focus; never a default button of its window. Raises Click. A click whose handler takes the
/// window away keeps the second press of a double click from whatever lies behind.
class Button : public QPushButton, public Control {
  public:
    Button(Form& form, QWidget& parent, QString name, const QString& caption);

    /// For a button that only takes the focus: no caption, no edge.
    void SetFaceless();

    QString Caption() const override { return caption_; }
    void SetCaption(const QString& caption) override;
    QColor ForeColor() const override { return palette().color(QPalette::Active, QPalette::ButtonText); }
    void SetForeColor(const QColor& color) override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    QString caption_;
    bool faceless_ = false;
    bool byInput_ = false;  // keys or mouse are at work, and they have moved the focus already
};
