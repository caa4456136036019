#pragma once

#include <QImage>
#include <QPoint>
#include <QProcess>
#include <QRect>
#include <QSize>
#include <QString>
#include <QStringList>
#include <functional>

struct xcb_connection_t;

/// A headless X server without a window manager for the programs that a test starts, with
/// simulated keyboard and mouse. Terminated with the object or the test's process.
class VirtualScreen {
  public:
    explicit VirtualScreen(const QSize& size = {1152, 864});
    ~VirtualScreen();

    /// Name of the display, empty if the server could not be started.
    const QString& Display() const { return display_; }

    /// Scales the desktop for all programs started from now on: 96 is a factor of 1.
    void SetDpi(int dpi);

    /// Waits until exactly `windows` windows of one program are shown and returns the last one; empty after a timeout.
    QString NewestOf(int windows) const;
    /// Waits until exactly two windows are shown, of one or two programs, and returns the one that is not `window`;
    /// empty after a timeout.
    QString OtherThan(const QString& window) const;
    /// Position and size of a window on the screen.
    QRect PlaceOf(const QString& window) const;
    /// Width and height of a window.
    QSize SizeOf(const QString& window) const { return PlaceOf(window).size(); }
    /// What the screen shows of a window that nothing covers; a null image if the server refuses.
    QImage Picture(const QString& window) const;
    /// Value of a window's property by its X name ("WM_CLASS"); empty without one, or for one of more than 4 KiB its
    /// beginning.
    QByteArray Property(const QString& window, const QByteArray& name) const;
    /// Text of the next "remove:" message of the startup notification, by which a program ends the busy cursor of its
    /// start, sent while `start` runs or after it; empty after a timeout.
    QByteArray StartEnded(const std::function<void()>& start) const;
    /// Presses keys in a window, by their X names ("ctrl+a", "space").
    bool Press(const QString& window, const QStringList& keys) const;
    bool Type(const QString& window, const QString& text) const;
    /// Clicks at a position of a window, in pixels from its upper left corner.
    bool Click(const QString& window, const QPoint& place) const;
    /// Sends what a window manager sends when the close box of a window is clicked.
    bool Close(const QString& window) const;

    /// Waits until the program of a window has handled all input that was sent before; false after a timeout.
    bool AwaitIdle(const QString& window) const;

    /// Moves a window and changes its size, as the user does with a window manager.
    bool MoveAndResize(const QString& window, const QPoint& place, const QSize& size) const;

    /// Breaks the connection of the program of a window to the display, as a window manager does to a program that
    /// does not respond.
    bool BreakConnection(const QString& window) const;

    /// Requests closing a window as a click on its close box does when a window manager runs.
    bool PressCloseBox(const QString& window) const;

  private:
    QStringList Windows() const;
    /// Waits until exactly that many windows are shown; empty after a timeout.
    QStringList Await(int windows) const;
    /// Waits until the window has the keyboard focus; false after a timeout.
    bool Focus(const QString& window) const;
    bool Work(const QStringList& arguments, QString* output = nullptr) const;

    QProcess server_;
    QString display_;
    xcb_connection_t* desktop_ = nullptr;  ///< keeps the server's properties, which it forgets with its last client
};
