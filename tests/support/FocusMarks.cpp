#include "support/FocusMarks.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QStyle>
#include <QtTest/QTest>

#include <algorithm>
#include <vector>

#include "screen/Form.h"
#include "screen/SuiteApplication.h"

namespace {

constexpr int kVisible = 60;  // differing pixels that a user notices; a caret alone has fewer
constexpr int kTiny = 8;      // size in pixels below which a stop shows the focus beside itself

int DifferingPixels(const QImage& a, const QImage& b) {
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (a.pixel(x, y) != b.pixel(x, y)) ++count;
    return count;
}

QRect AreaOf(const Form& form, const Control& stop) {
    const QWidget& widget = stop.FocusWidget();
    const QRect area(widget.mapTo(&form, QPoint()), widget.size());
    const int around = widget.width() < kTiny ? kTiny : 0;
    return area.adjusted(-around, -around, around, around) & form.rect();
}

std::vector<Control*> StopsOf(Form& form) {
    std::vector<Control*> stops;
    while (std::find(stops.begin(), stops.end(), form.ActiveControl()) == stops.end()) {
        stops.push_back(form.ActiveControl());
        form.MoveToNextStop(true);
    }
    return stops;
}

/// Another stop whose own picture is outside the area.
Control* StopOutside(const Form& form, const std::vector<Control*>& stops, const QRect& area) {
    const auto other = std::find_if(stops.begin(), stops.end(),
                                    [&](const Control* stop) { return !AreaOf(form, *stop).intersects(area); });
    return other == stops.end() ? nullptr : *other;
}

}  // namespace

SuiteLook::SuiteLook() : style_(QApplication::style()->name()), palette_(QApplication::palette()), font_(qApp->font()) {
    ApplySuiteStyle(*qApp);
}

SuiteLook::~SuiteLook() {
    QApplication::setStyle(style_);
    QApplication::setPalette(palette_);
    QApplication::setFont(font_);
}

bool ShowsFocus(QWidget& window, const QRect& area, const std::function<void()>& give,
                const std::function<void()>& take) {
    give();
    const QImage with = window.grab(area).toImage();
    take();
    const QImage without = window.grab(area).toImage();
    return DifferingPixels(with, without) >= kVisible;
}

QStringList ExpectFocusMarks(Form& form) {
    QApplication::setActiveWindow(&form);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    QStringList names;
    const std::vector<Control*> stops = StopsOf(form);
    for (Control* stop : stops) {
        names << stop->Name();
        const QRect area = AreaOf(form, *stop);
        Control* other = StopOutside(form, stops, area);
        if (other == nullptr) {
            ADD_FAILURE() << "no other stop to compare with: " << stop->Name().toStdString();
            continue;
        }
        EXPECT_TRUE(ShowsFocus(
            form, area, [&] { stop->SetFocus(); }, [&] { other->SetFocus(); }))
            << form.Name().toStdString() << ": " << stop->Name().toStdString();
    }
    return names;
}
