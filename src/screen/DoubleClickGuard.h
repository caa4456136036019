#pragma once

#include <QPointer>
#include <QWidget>

class QMouseEvent;

/// Scope guard around the handling of a click that may close its own window. Users who double-click out of habit would
/// press whatever the closed window uncovers. If the window has closed, one more press at the same position within the
/// double-click interval is discarded with its release, in all windows of the program. `click` must outlive the guard.
class SecondPressGuard {
  public:
    SecondPressGuard(const QWidget& clicked, const QMouseEvent& click) : window_(clicked.window()), click_(click) {}
    ~SecondPressGuard();
    SecondPressGuard(const SecondPressGuard&) = delete;
    SecondPressGuard& operator=(const SecondPressGuard&) = delete;

  private:
    QPointer<QWidget> window_;
    const QMouseEvent& click_;
};
