#pragma once

#include <QCheckBox>
#include <QPushButton>

#include "screen/Control.h"

/// SSCommand: Button(form, parent, name, caption). The caption may have several lines. Mouse, Space and Enter press the
/// focused button and emit Click; it is never the default button of its window. If the handler closes the window, the
/// second press of a double-click is discarded (DoubleClickGuard).
class Button : public QPushButton, public Control {
  public:
    Button(Form& form, QWidget& parent, QString name, const QString& caption);

    /// Invisible button that only takes the focus.
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
    bool byInput_ = false;  // pressed by key or mouse, which have already moved the focus
};

/// CheckBox: CheckItem(form, parent, name, index, caption). Value is 0 or 1; SetValue takes any number other than 0
/// as 1. Emits Click at each change of Value, also when the program writes it.
class CheckItem : public QCheckBox, public Control {
  public:
    CheckItem(Form& form, QWidget& parent, QString name, int index, const QString& caption);

    QString Caption() const override { return caption_; }
    void SetCaption(const QString& caption) override;
    int Value() const override { return isChecked() ? 1 : 0; }
    void SetValue(int value) override;

  protected:
    bool hitButton(const QPoint& place) const override { return rect().contains(place); }

  private:
    QString caption_;
};
