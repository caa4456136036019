// The real programs on screens of several sizes.

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QScopeGuard>
#include <QTest>

#include "support/SampleInstallation.h"
#include "support/VirtualScreen.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kTimeout = 30000;  // milliseconds

class ScreenSize : public testing::Test {
  protected:
    ~ScreenSize() override {
        process.kill();
        process.waitForFinished();
    }

    /// Starts the inquiry and returns its main window.
    QString Start(const VirtualScreen& screen, const QString& scaleFactor = {}) {
        const QString program = installation.ProgramFolder() + u"/要員名簿照会"_s;
        EXPECT_TRUE(QFile::exists(program) || QFile::link(QStringLiteral(SUITE_PROGRAMS "/要員名簿照会"), program));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
        environment.insert(u"DISPLAY"_s, screen.Display());
        if (!scaleFactor.isEmpty()) environment.insert(u"QT_SCALE_FACTOR"_s, scaleFactor);
        process.setProcessEnvironment(environment);
        process.start(program, QStringList());
        return screen.NewestOf(1);
    }
    void ExpectMainWindow(const QSize& screenSize, const QSize& windowSize, const QString& scaleFactor = {},
                          int dpi = 0) {
        VirtualScreen screen(screenSize);
        if (dpi != 0) screen.SetDpi(dpi);
        const QString window = Start(screen, scaleFactor);
        ASSERT_FALSE(window.isEmpty());
        EXPECT_TRUE(QTest::qWaitFor([&] { return screen.SizeOf(window) == windowSize; }, kTimeout));
        const QRect place = screen.PlaceOf(window);
        EXPECT_EQ(place.size(), windowSize);
        EXPECT_TRUE(QRect({0, 0}, screenSize).contains(place));
    }

    SampleInstallation installation;
    QProcess process;
};

}  // namespace

TEST_F(ScreenSize, SixRowsAt1024x768) { ExpectMainWindow({1024, 768}, {1012, 692}); }
TEST_F(ScreenSize, EightRowsAt1152x864) { ExpectMainWindow({1152, 864}, {1012, 820}); }
TEST_F(ScreenSize, LargerAt1920x1080) { ExpectMainWindow({1920, 1080}, {1265, 1025}); }
TEST_F(ScreenSize, LargerAt2560x1440) { ExpectMainWindow({2560, 1440}, {1645, 1333}); }
TEST_F(ScreenSize, LargerAt3840x2160) { ExpectMainWindow({3840, 2160}, {2530, 2050}); }
TEST_F(ScreenSize, FactorOfTheUserIsNotMultiplied) { ExpectMainWindow({3840, 2160}, {2024, 1640}, u"2"_s); }
TEST_F(ScreenSize, FactorOfTheUserThatWouldCutOffIsReduced) { ExpectMainWindow({1920, 1080}, {1455, 995}, u"2"_s); }

// Eight rows on 1080 pixels of the desktop, six on 540.
TEST_F(ScreenSize, ScaleOfTheDesktopIsNotMultiplied) { ExpectMainWindow({3840, 2160}, {2530, 2050}, {}, 192); }
TEST_F(ScreenSize, ScaleOfTheDesktopDecidesTheRows) { ExpectMainWindow({1920, 1080}, {1455, 995}, {}, 192); }

// A common screen with a panel has this scale, at which Qt's style draws borders outside of the buttons.
TEST_F(ScreenSize, BordersOfButtonsAreCompleteAtAFractionalScale) {
    constexpr double kScale = 1.1875;
    const VirtualScreen screen({1920, 1080});
    const QString window = Start(screen, u"1.1875"_s);
    // btn_部門個別選択 in the pixels of the window; its face is lighter than its border.
    const QRectF button(8, 44, 126, 26);
    const int right = qFloor(button.right() * kScale), middle = qRound(button.center().y() * kScale);
    const auto darkest = [&] {
        const QImage picture = screen.Picture(window);
        int gray = 255;
        for (int x = right - 4; x < right && picture.valid(x, middle); ++x)
            gray = qMin(gray, qGray(picture.pixel(x, middle)));
        return gray;
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return darkest() < 0xC8; }, 5000)) << darkest();
}

TEST_F(ScreenSize, StartedProgramsDoNotInheritTheFactor) {
    const VirtualScreen screen({1920, 1080});
    QFile sibling(installation.ProgramFolder() + u"/要員台帳更新"_s);
    const QString seen = installation.Root() + u"/seen"_s;
    ASSERT_TRUE(sibling.open(QIODevice::WriteOnly));
    sibling.write("#!/bin/sh\nenv > '" + seen.toUtf8() + ".part'\nmv '" + seen.toUtf8() + ".part' '" + seen.toUtf8() +
                  "'\n");
    sibling.close();
    ASSERT_TRUE(sibling.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    const QString window = Start(screen);
    // A click on the name in the first row starts the sibling program.
    ASSERT_TRUE(screen.Click(window, QPoint(200, 340)));
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(seen); }, kTimeout));
    QFile environment(seen);
    ASSERT_TRUE(environment.open(QIODevice::ReadOnly));
    EXPECT_FALSE(environment.readAll().contains("QT_SCALE_FACTOR"));
}
