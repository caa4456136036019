#pragma once

#include <QLabel>

#include "screen/Accessibility.h"

/// One line of text that says what the program has done or is doing, such as the size of a list. A text that is too
/// long is shortened in its middle; the tooltip then has all of it. It is no Control.
///
/// For screen readers it is a notification with the whole text as its name, announced at each change.
class StatusLine : public QLabel, public AccessibleText {
  public:
    explicit StatusLine(QWidget& parent);

    void SetText(const QString& text);

    QAccessible::Role AccessibleRole() const override { return QAccessible::Notification; }
    QString AccessibleName() const override { return accessibleName(); }
    QString AccessibleDescription() const override { return objectName(); }

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Shorten();

    QString text_;
};

/// Shows the text in the status line of the window; ignored if the window has none.
void ShowStatus(const QWidget& window, const QString& text);
