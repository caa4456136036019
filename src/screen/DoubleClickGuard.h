#pragma once

#include <QPointer>
#include <QWidget>

class QMouseEvent;

/// Stands around the handling of a click that may take its own window away. Who double-clicks out of habit would press
/// a second time on whatever has come to light behind, so one more press at the same place and within the double-click
/// time is swallowed, together with its release, whichever window of the program it meets. `click` outlives this.
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
