#pragma once

#include <QByteArray>
#include <QSize>

struct xcb_connection_t;

// The factor by which all windows of the suite are drawn larger or smaller, so that they suit the screen. It multiplies
// Qt's own scale, so text and lines stay sharp.

/// Client area of the main window in its own pixels, the largest window of the suite: with eight rows, and with six
/// rows on a screen that is lower than kFullScreenHeight.
inline constexpr QSize kFullWindow(1012, 820);
inline constexpr QSize kLowWindow(1012, 692);
inline constexpr int kFullScreenHeight = 864;

/// What title bar and borders of a desktop may take, in pixels at the desktop's own scale. The real frame is unknown
/// before a window is shown.
inline constexpr QSize kLargestFrame(8, 40);

struct ScreenMeasure {
    QSize pixels;     ///< the whole screen, in device pixels
    QSize available;  ///< without the desktop's panels, in device pixels
    double scale;     ///< device pixels per window pixel without the suite's factor
    bool fixed;       ///< the user has chosen `scale` for Qt programs: windows are only made smaller, if cut off
};

/// Device pixels per window pixel with which the main window fills the screen without being cut off. The number of rows
/// does not change: the screen keeps at least kFullScreenHeight window pixels where `scale` gives it that many. Whole
/// sixteenths, so that each row of the list (64 pixels) has the same number of device pixels. Not below 1, where Qt
/// paints only parts of a window, unless `scale` is.
double ScaleToSuit(const ScreenMeasure& screen);

/// To be created before the Qt application object and destroyed after its construction: measures the primary screen
/// and, if it is not suited by its own scale, lets Qt draw by another one through QT_SCALE_FACTOR. The destructor sets
/// this variable back, since programs that are started later must not inherit it. Does nothing on platforms without a
/// screen (offscreen, minimal). `program`: argv[0].
class ScreenScale {
  public:
    explicit ScreenScale(const char* program);
    ~ScreenScale();
    ScreenScale(const ScreenScale&) = delete;
    ScreenScale& operator=(const ScreenScale&) = delete;

  private:
    xcb_connection_t* connection_;
    QByteArray before_;
    bool changed_ = false;
};
