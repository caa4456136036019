#pragma once

#include <QPoint>
#include <QProcess>
#include <QSize>
#include <QString>
#include <QStringList>

/// A screen of its own for the programs that a test starts, of 1152 by 864 dots and without a window manager, with
/// somebody at its keyboard. Ends with the object, and with the test's process.
class VirtualScreen {
  public:
    VirtualScreen();
    ~VirtualScreen();

    /// Name of the display, empty when no screen could be made.
    const QString& Display() const { return display_; }

    /// Waits until exactly so many windows show, and gives the one that came last; empty when they don't come.
    QString NewestOf(int windows) const;
    /// Width and height of a window.
    QSize SizeOf(const QString& window) const;
    /// Presses keys in a window, by the names of the window system ("ctrl+a", "space").
    bool Press(const QString& window, const QStringList& keys) const;
    bool Type(const QString& window, const QString& text) const;
    /// Clicks a place of a window, in pixels from its upper left corner.
    bool Click(const QString& window, const QPoint& place) const;
    /// Sends what a window manager sends when the close box of a window is clicked.
    bool Close(const QString& window) const;

    /// Presses the close box of a window, as a window manager passes it on.
    bool PressCloseBox(const QString& window) const;

  private:
    QStringList Windows() const;
    /// Waits until the window has the keyboard; False when it never gets it.
    bool Focus(const QString& window) const;
    bool Work(const QStringList& arguments, QString* output = nullptr) const;

    QProcess server_;
    QString display_;
};
