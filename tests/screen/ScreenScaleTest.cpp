#include "screen/ScreenScale.h"

#include <gtest/gtest.h>

namespace {

/// The factor for a screen without panels.
double Suits(QSize pixels, double scale = 1, bool fixed = false) {
    return ScaleToSuit({.pixels = pixels, .available = pixels, .scale = scale, .fixed = fixed});
}

double WithPanel(QSize pixels, int panel) {
    return ScaleToSuit({.pixels = pixels, .available = pixels - QSize(0, panel), .scale = 1, .fixed = false});
}

}  // namespace

TEST(ScreenScale, SmallestScreensOfBothRowCountsKeepTheirPixels) {
    EXPECT_EQ(Suits({1024, 768}), 1);
    EXPECT_EQ(Suits({1152, 864}), 1);
    EXPECT_EQ(Suits({1366, 768}), 1);
    EXPECT_EQ(Suits({1152, 863}), 1.125);  // six rows, which would fit into 768 pixels
}

TEST(ScreenScale, LargerScreensAreFilledAndKeep864PixelsOfHeight) {
    EXPECT_EQ(Suits({1920, 1080}), 1.25);
    EXPECT_EQ(Suits({1920, 1200}), 1.375);
    EXPECT_EQ(Suits({2560, 1440}), 1.625);
    EXPECT_EQ(Suits({3840, 2160}), 2.5);
    for (int height = 864; height <= 2160; ++height) {
        const double scale = Suits({height * 16 / 9, height});
        EXPECT_GE(height, 864 * scale) << height;
        EXPECT_LE(kFullWindow.height() * scale + 40, height) << height;
    }
}

TEST(ScreenScale, LowScreensKeepSixRowsAndCutNothingOff) {
    for (int height = 768; height < 864; ++height) {
        const double scale = Suits({height * 4 / 3, height});
        EXPECT_LT(height, 864 * scale) << height;
        EXPECT_LE(kLowWindow.height() * scale + 40, height) << height;
        EXPECT_LE(kLowWindow.width() * scale, height * 4 / 3) << height;
    }
}

TEST(ScreenScale, RowCountIsThatOfTheDesktopsScale) {
    EXPECT_EQ(Suits({1920, 1080}, 1.25), 1.25);   // 864 pixels: eight rows
    EXPECT_EQ(Suits({1920, 1080}, 2), 1.4375);    // 540 pixels: six rows, as large as fits
    EXPECT_EQ(Suits({1920, 1080}, 1.5), 1.4375);  // 720 pixels
    EXPECT_EQ(Suits({3840, 2160}, 2), 2.5);       // 1080 pixels
    EXPECT_EQ(Suits({2560, 1440}, 2), 1.9375);    // 720 pixels
}

TEST(ScreenScale, FactorOfTheUserIsOnlyMadeSmaller) {
    EXPECT_EQ(Suits({3840, 2160}, 1, true), 1);
    EXPECT_EQ(Suits({3840, 2160}, 2, true), 2);
    EXPECT_EQ(Suits({1920, 1080}, 2, true), 1.4375);
    EXPECT_EQ(Suits({1024, 768}, 1.1, true), 1);
}

TEST(ScreenScale, PanelOfTheDesktopCutsNothingOff) {
    EXPECT_EQ(WithPanel({1024, 768}, 36), 1);
    EXPECT_EQ(WithPanel({1920, 1080}, 40), 1.1875);
    EXPECT_EQ(WithPanel({1920, 1080}, 20), 1.1875);
    for (int panel = 0; panel <= 60; ++panel)
        EXPECT_LE(kFullWindow.height() * WithPanel({1600, 960}, panel) + 40, 960 - panel) << panel;
}

TEST(ScreenScale, UprightScreenIsLimitedByItsWidth) {
    EXPECT_EQ(Suits({1080, 1920}), 1);
    EXPECT_EQ(Suits({1440, 2560}), 1.375);
}

// Qt 6.4 leaves parts of a window unpainted when it scales by less than 1.
TEST(ScreenScale, NothingIsScaledBelowOneUnlessTheUserDoes) {
    EXPECT_EQ(Suits({800, 600}), 1);
    EXPECT_EQ(WithPanel({1152, 864}, 32), 1);
    EXPECT_EQ(Suits({1024, 768}, 0.75, true), 0.75);
    EXPECT_EQ(Suits({640, 480}, 0.75, true), 0.75);
}
