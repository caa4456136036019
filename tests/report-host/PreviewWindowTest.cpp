#include <gtest/gtest.h>

#include <QAccessible>
#include <QAction>
#include <QCloseEvent>
#include <QComboBox>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolButton>
#include <QtTest/QTest>

#include <chrono>

#include "database/DatabaseError.h"
#include "report-host/DrawnReport.h"
#include "report-host/preview/PageView.h"
#include "report-host/preview/PreviewWindow.h"
#include "report-host/render/RenderWatch.h"
#include "report-host/template/OutputTarget.h"
#include "support/FileBytes.h"
#include "support/FocusMarks.h"
#include "support/SampleInstallation.h"
#include "support/TestServices.h"

using namespace Qt::StringLiterals;

namespace {

class PreviewWindowTest : public ::testing::Test {
  protected:
    void Show(int pages) {
        auto made = std::make_unique<DrawnReport>(pages);
        report = made.get();
        window = std::make_unique<PreviewWindow>(std::move(made), u"要員名簿照会"_s, forms);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        ASSERT_TRUE(QTest::qWaitFor([this] { return report->painted == 0; }));
    }
    void Press(const QString& action) {
        auto* bar = window->findChild<QToolBar*>();
        QWidget* button = bar->widgetForAction(window->findChild<QAction*>(action));
        QTest::mouseClick(button, Qt::LeftButton);
    }
    bool Enabled(const QString& action) const { return window->findChild<QAction*>(action)->isEnabled(); }
    bool Paints(int page) {
        return QTest::qWaitFor([this, page] { return report->painted == page; });
    }
    PageView& View() const { return static_cast<PageView&>(*window->findChild<QWidget*>(u"page"_s)); }
    QString StatusText() const { return window->statusBar()->currentMessage(); }

    TestServices services;
    QTemporaryDir folder;
    QString forms = u"/nowhere/repfrmdb.accdb"_s;
    std::unique_ptr<PreviewWindow> window;
    DrawnReport* report = nullptr;
};

}  // namespace

TEST_F(PreviewWindowTest, ButtonsTurnThePagesAndStopAtTheEnds) {
    Show(3);
    EXPECT_FALSE(Enabled(u"previous"_s));
    Press(u"next"_s);
    EXPECT_TRUE(Paints(1));
    Press(u"last"_s);
    EXPECT_TRUE(Paints(2));
    EXPECT_FALSE(Enabled(u"next"_s));
    Press(u"previous"_s);
    EXPECT_TRUE(Paints(1));
    Press(u"first"_s);
    EXPECT_TRUE(Paints(0));
}

TEST_F(PreviewWindowTest, KeysTurnThePages) {
    Show(3);
    QTest::keyClick(window.get(), Qt::Key_PageDown);
    EXPECT_TRUE(Paints(1));
    QTest::keyClick(window.get(), Qt::Key_End);
    EXPECT_TRUE(Paints(2));
    QTest::keyClick(window.get(), Qt::Key_PageDown);
    QTest::keyClick(window.get(), Qt::Key_PageUp);
    EXPECT_TRUE(Paints(1));
    QTest::keyClick(window.get(), Qt::Key_Home);
    EXPECT_TRUE(Paints(0));
}

TEST_F(PreviewWindowTest, EveryStopShowsThatItHasTheFocus) {
    const SuiteLook look;
    Show(3);
    QApplication::setActiveWindow(window.get());
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    QWidgetList stops;
    for (QWidget* stop : window->findChildren<QWidget*>())
        if (stop->isVisible() && stop->isEnabled() && stop->focusPolicy() & Qt::TabFocus && !stop->focusProxy())
            stops << stop;
    const auto areaOf = [this](const QWidget* stop) {
        return QRect(stop->mapTo(window.get(), QPoint()), stop->size()) & window->rect();
    };
    EXPECT_GE(stops.size(), 9);
    for (QWidget* stop : stops) {
        const bool page = stop == &View();
        QWidget* other = stops.first() == stop ? stops.last() : stops.first();
        const QRect area = page ? areaOf(window->centralWidget()) : areaOf(stop);
        EXPECT_TRUE(ShowsFocus(
            *window, area, [stop] { stop->setFocus(); }, [other] { other->setFocus(); }))
            << stop->metaObject()->className() << stops.indexOf(stop);
    }
}

TEST_F(PreviewWindowTest, PageFieldSaysHowManyThereAreAndGoesToOne) {
    Show(12);
    auto* field = window->findChild<QSpinBox*>(u"pageField"_s);
    EXPECT_EQ(field->text(), u"1 / 12 ページ"_s);
    QTest::mouseClick(field, Qt::LeftButton);
    field->selectAll();
    QTest::keyClicks(field, u"7"_s);
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_TRUE(Paints(6));
    EXPECT_EQ(field->text(), u"7 / 12 ページ"_s);
}

TEST_F(PreviewWindowTest, WholePageFollowsTheWindowUntilAZoomIsChosen) {
    Show(1);
    const double before = View().Zoom();
    window->resize(600, 500);
    EXPECT_TRUE(QTest::qWaitFor([&] { return View().Zoom() < before; }));
    Press(u"larger"_s);
    const double chosen = View().Zoom();
    window->resize(900, 800);
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    QCoreApplication::processEvents();
    EXPECT_EQ(View().Zoom(), chosen);
    Press(u"smaller"_s);
    EXPECT_LT(View().Zoom(), chosen);
}

TEST_F(PreviewWindowTest, TabReachesThePageAndEveryToolThatWorksAndEachHasAName) {
    Show(2);
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    QStringList names;
    do {
        names << QAccessible::queryAccessibleInterface(window->focusWidget())->text(QAccessible::Name);
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    } while (window->focusWidget() != &View() && names.size() < 20);
    // On the first page the buttons for previous pages are disabled.
    EXPECT_EQ(names, (QStringList{u"プレビュ"_s, u"印刷"_s, u"PDFに保存"_s, u"ページ"_s, u"次ページ"_s, u"最後"_s,
                                  u"縮小"_s, u"倍率"_s, u"拡大"_s, u"閉じる"_s}));
}

TEST_F(PreviewWindowTest, ScreenReaderGetsThePageAndTheZoomAlsoBetweenItsEntries) {
    Show(3);
    const auto reported = [](QWidget& widget) {
        return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Description);
    };
    auto& zoom = *window->findChild<QComboBox*>(u"zoomField"_s);
    EXPECT_EQ(reported(zoom), u"ページ全体"_s);
    EXPECT_EQ(reported(View()), u"1 / 3 ページ"_s);
    Press(u"next"_s);
    EXPECT_EQ(reported(View()), u"2 / 3 ページ"_s);
    zoom.setCurrentIndex(zoom.findText(u"100%"_s));
    Q_EMIT zoom.activated(zoom.currentIndex());
    Press(u"larger"_s);
    EXPECT_EQ(reported(zoom), u"125%"_s);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&zoom)->text(QAccessible::Name), u"倍率"_s);
}

TEST_F(PreviewWindowTest, ArrowKeysScrollThePage) {
    Show(1);
    auto* zoom = window->findChild<QComboBox*>(u"zoomField"_s);
    zoom->setCurrentIndex(zoom->findText(u"200%"_s));
    Q_EMIT zoom->activated(zoom->currentIndex());
    const QScrollBar& bar = *window->findChild<QScrollArea*>(u"area"_s)->verticalScrollBar();
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar.maximum() > 0; }));
    QTest::keyClick(&View(), Qt::Key_Down);
    EXPECT_GT(bar.value(), 0);
}

TEST_F(PreviewWindowTest, ChosenPercentIsTheSizeOnPaper) {
    Show(1);
    auto* zoom = window->findChild<QComboBox*>(u"zoomField"_s);
    zoom->setCurrentIndex(zoom->findText(u"100%"_s));
    Q_EMIT zoom->activated(zoom->currentIndex());
    EXPECT_EQ(View().Zoom(), 1.0);
    EXPECT_EQ(View().sizeHint().width() - 24, qRound(210 * 96 / 25.4));
}

TEST_F(PreviewWindowTest, StepsEndAtTheLargestAndTheSmallestZoom) {
    Show(1);
    auto* zoom = window->findChild<QComboBox*>(u"zoomField"_s);
    for (int step = 0; step < 20; ++step) Press(u"larger"_s);
    EXPECT_EQ(View().Zoom(), 4.0);
    EXPECT_EQ(zoom->currentText(), u"400%"_s);
    for (int step = 0; step < 20; ++step) Press(u"smaller"_s);
    EXPECT_EQ(View().Zoom(), 0.1);
    EXPECT_EQ(zoom->placeholderText(), u"10%"_s);
}

TEST_F(PreviewWindowTest, PageThatFailsSaysWhyAndTheWindowGoesOn) {
    Show(2);
    report->Fails = [](int page) { return page == 1; };
    Press(u"next"_s);
    QCoreApplication::processEvents();
    const QImage broken = View().grab().toImage();
    report->Fails = nullptr;
    Press(u"previous"_s);
    Press(u"next"_s);
    EXPECT_TRUE(Paints(1));
    EXPECT_NE(View().grab().toImage(), broken);
    EXPECT_EQ(services.dialogs.shown.size(), 0);
}

TEST_F(PreviewWindowTest, SaveWritesAllPagesUnderTheNameWithItsSuffix) {
    Show(2);
    services.dialogs.saveAnswers = {folder.filePath(u"名簿"_s)};
    Press(u"save"_s);
    EXPECT_EQ(services.dialogs.saveQuestions.value(0).FileName, u"要員名簿照会.pdf"_s);
    EXPECT_TRUE(ReadBytes(folder.filePath(u"名簿.pdf"_s)).startsWith("%PDF"));
    EXPECT_EQ(StatusText(), u"「%1」に保存しました。"_s.arg(folder.filePath(u"名簿.pdf"_s)));
}

TEST_F(PreviewWindowTest, CancelledSaveWritesNothing) {
    Show(1);
    Press(u"save"_s);
    EXPECT_EQ(services.dialogs.saveQuestions.size(), 1);
    EXPECT_EQ(StatusText(), QString());
}

TEST_F(PreviewWindowTest, ExistingFileIsOverwrittenOnlyOnYes) {
    const QString file = folder.filePath(u"a.pdf"_s);
    WriteBytes(file, "mine");
    Show(1);
    services.dialogs.saveAnswers = {file, file};
    services.dialogs.answers = {false, true};
    Press(u"save"_s);
    EXPECT_EQ(ReadBytes(file), "mine");
    Press(u"save"_s);
    EXPECT_TRUE(ReadBytes(file).startsWith("%PDF"));
    EXPECT_EQ(services.dialogs.Texts().value(0), u"%1 は既にあります。\n上書きしますか?"_s.arg(file));
}

TEST_F(PreviewWindowTest, SaveThatFailsIsReported) {
    Show(1);
    services.dialogs.saveAnswers = {u"/nowhere/a.pdf"_s};
    Press(u"save"_s);
    ASSERT_EQ(services.dialogs.shown.size(), 1);
    EXPECT_TRUE(services.dialogs.shown[0].text.contains(u"/nowhere/a.pdf"_s));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(PreviewWindowTest, RowsThatCannotBeReadAreReportedAndTheWindowStaysOpen) {
    Show(1);
    services.dialogs.saveAnswers = {folder.filePath(u"a.pdf"_s)};
    report->Painting = [](int) { throw database::DatabaseError(database::kEngineFailure, u"disk I/O error"_s); };
    Press(u"save"_s);
    EXPECT_EQ(services.dialogs.Texts(), QStringList{u"disk I/O error"_s});
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST_F(PreviewWindowTest, PrintGoesWhereTheReportsGoOrTellsWhyNot) {
    Show(2);
    Press(u"print"_s);
    ASSERT_EQ(services.dialogs.shown.size(), 1);
    EXPECT_TRUE(services.dialogs.shown[0].text.startsWith(u"出力先を読めません。"_s));
    const SampleInstallation installation;
    forms = installation.ReportFolder() + u"/repfrmdb.accdb"_s;
    WriteOutputTarget(forms, {}, {OutputTarget::Kind::Folder, folder.path()});
    Show(2);
    Press(u"print"_s);
    EXPECT_EQ(services.dialogs.shown.size(), 1);
    EXPECT_EQ(StatusText(), u"印刷に出しました。"_s);
    EXPECT_TRUE(QFile::exists(folder.filePath(u"要員名簿照会-20261121-093015.pdf"_s)));
}

TEST_F(PreviewWindowTest, EscapeCloses) {
    Show(1);
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); }));
}

TEST_F(PreviewWindowTest, CloseBoxEndsAPrintOfManyPagesAndLeavesNoFile) {
    Show(100'000);
    services.dialogs.saveAnswers = {folder.filePath(u"a.pdf"_s)};
    report->Painting = [this](int page) {
        if (page == 3) QCoreApplication::postEvent(window.get(), new QCloseEvent);
    };
    Press(u"save"_s);
    EXPECT_FALSE(window->isVisible());
    EXPECT_LT(report->painted, 99'999);
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    EXPECT_EQ(services.dialogs.Texts(), QStringList()) << "who closes it knows";
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(PreviewWindowTest, InputDuringAPrintIsDropped) {
    Show(3);
    services.dialogs.saveAnswers = {folder.filePath(u"a.pdf"_s)};
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(300);
    report->Painting = [&](int page) {
        if (page != 0) return;
        auto* key = new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::postEvent(window->windowHandle(), key);
        while (std::chrono::steady_clock::now() < end) StopIfWanted();
    };
    Press(u"save"_s);
    EXPECT_TRUE(QFile::exists(folder.filePath(u"a.pdf"_s)));
    EXPECT_TRUE(window->isVisible());
}

TEST_F(PreviewWindowTest, PageThatTakesLongIsPaintedOutsideThePaintingOfItsWindow) {
    Show(2);
    int attempts = 0;
    report->Painting = [&](int page) {
        if (page != 1) return;
        ++attempts;
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(700);
        while (std::chrono::steady_clock::now() < end) StopIfWanted();
    };
    Press(u"next"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return report->painted == 1; }, 20000));
    EXPECT_EQ(attempts, 2);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(PreviewWindowTest, CloseBoxEndsThePaintingOfAPageWithoutEnd) {
    Show(2);
    report->Painting = [this](int page) {
        if (page == 1) QCoreApplication::postEvent(window.get(), new QCloseEvent);
        while (page == 1) StopIfWanted();
    };
    Press(u"next"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); }, 20000));
    EXPECT_EQ(report->painted, 0);
}

TEST_F(PreviewWindowTest, NoZoomMakesAPictureThatMemoryCannotHold) {
    auto made = std::make_unique<DrawnReport>(1, QSizeF(2000, 2000));
    PreviewWindow large(std::move(made), u"大判"_s, forms);
    auto& view = static_cast<PageView&>(*large.findChild<QWidget*>(u"page"_s));
    view.SetZoom(4);
    EXPECT_NEAR(view.Zoom(), 8000 / (2000 * 96 / 25.4), 0.001);
}
