#include <QApplication>
#include <QPointer>
#include <QtTest/QTest>
#include <algorithm>

#include "globals/ProgramGlobals.h"
#include "screen/ScreenTest.h"
#include "screen/modクライアント処理.h"
#include "screen/modマニュアル.h"
#include "screen/msgお待ち.h"
#include "support/FormRobot.h"

using namespace Qt::StringLiterals;

class WaitDialog : public ScreenTest {
  protected:
    static Form* Shown() { return LoadedForm(u"msgお待ち"_s); }
    void TearDown() override { UnloadWaitDialog(); }
};

TEST_F(WaitDialog, SaysOneSentenceHasNoButtonsAndNoCloseBox) {
    ShowWaitDialog();
    ASSERT_NE(Shown(), nullptr);
    EXPECT_TRUE(Shown()->isVisible());
    EXPECT_EQ(Shown()->Item(u"lab_msg"_s).Caption(), u"しばらくお待ちください。"_s);
    EXPECT_EQ(Shown()->Item(u"lab_件数"_s).Caption(), QString());
    EXPECT_EQ(Shown()->Controls().size(), 3U);
    EXPECT_EQ(Shown()->ActiveControl(), nullptr) << "it has no stop";
    EXPECT_FALSE(Shown()->windowFlags() & Qt::WindowCloseButtonHint);
    Shown()->close();
    EXPECT_TRUE(Shown()->isVisible());
    EXPECT_FALSE(Shown()->isModal());
}

TEST_F(WaitDialog, IsCreatedByEachJob) {
    ShowWaitDialog();
    const QPointer<Form> first(Shown());
    UnloadWaitDialog();
    EXPECT_EQ(Shown(), nullptr);
    EXPECT_FALSE(IsFormLoaded(u"msgお待ち"_s));
    ShowWaitDialog();
    ASSERT_NE(Shown(), nullptr);
    EXPECT_NE(Shown(), first.data());
}

TEST_F(WaitDialog, ShownTwiceWithoutUnloadingItIsOne) {
    ShowWaitDialog();
    ShowWaitDialog();
    EXPECT_EQ(LoadedForms().size(), 1U);
    UnloadWaitDialog();
    UnloadWaitDialog();
    EXPECT_EQ(Shown(), nullptr);
}

TEST_F(WaitDialog, IsAboveTheMainFormWithoutTakingTheFocus) {
    ThreeItems form;
    Globals().MainForm = &form;
    ShowActive(form);
    form.Taken();
    ShowWaitDialog();
    const QPoint distance = Shown()->geometry().center() - form.geometry().center();
    EXPECT_LT(distance.manhattanLength(), 60);
    EXPECT_EQ(form.Taken(), QString());
    EXPECT_EQ(form.ActiveControl(), &form.first);
}

namespace {
/// Counts the paints of a widget.
class Paints : public QObject {
  public:
    explicit Paints(QWidget& widget) { widget.installEventFilter(this); }
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};
}  // namespace

TEST_F(WaitDialog, ProgressIsPaintedAfterHalfASecondAndTenTimesASecond) {
    using namespace std::chrono_literals;
    ShowWaitDialog();
    Control& line = Shown()->Item(u"lab_件数"_s);
    Paints paints(line.Widget());
    services.clock.elapsed += 500ms;
    PaintProgress(u"データ作成"_s, 1, 12345);
    EXPECT_EQ(line.Caption(), QString());
    EXPECT_EQ(paints.count, 0);
    services.clock.elapsed += 1ms;
    PaintProgress(u"データ作成"_s, 1234, 12345);
    EXPECT_EQ(line.Caption(), u"データ作成 1,234 / 12,345 件"_s);
    EXPECT_EQ(paints.count, 1);
    services.clock.elapsed += 99ms;
    PaintProgress(u"データ作成"_s, 1300, 12345);
    EXPECT_EQ(line.Caption(), u"データ作成 1,234 / 12,345 件"_s);
    services.clock.elapsed += 1ms;
    PaintProgress(u"データ作成"_s, 1400, 12345);
    EXPECT_EQ(line.Caption(), u"データ作成 1,400 / 12,345 件"_s);
    EXPECT_EQ(paints.count, 2);
}

TEST_F(WaitDialog, ProgressWithoutTheDialogIsNothing) {
    services.clock.elapsed += std::chrono::seconds(5);
    PaintProgress(u"データ作成"_s, 1, 2);
    EXPECT_EQ(Shown(), nullptr);
    ShowWaitDialog();
    EXPECT_EQ(Shown()->Item(u"lab_件数"_s).Caption(), QString());
}

class Manual : public ScreenTest {};

TEST_F(Manual, IsNamedByTheFullWidthProgramIdInItsFolder) {
    Globals().Layout.ManualFolder = u"/suite/manual"_s;
    Globals().ProgramId = u"要員名簿照会A1 ｶﾞ"_s;
    OpenManual(Globals().Layout.ManualFolder, Globals().ProgramId);
    ASSERT_EQ(services.processes.documents.size(), 1);
    EXPECT_EQ(services.processes.documents.first().path, u"/suite/manual/要員名簿照会Ａ１ ガ.doc"_s);
    EXPECT_EQ(services.processes.documents.first().workingFolder, u"/suite/manual"_s);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(Manual, PathWithoutASeparatorPassesNoWorkingFolder) {
    EXPECT_TRUE(OpenDocument(u"説明.doc"_s));
    EXPECT_EQ(services.processes.documents.first().workingFolder, QString());
}

TEST_F(Manual, PanelIsDisabledWithTheOthersDuringASearch) {
    ThreeItems form;
    Globals().MainForm = &form;
    int opened = 0;
    form.panel.Click = [&] { ++opened; };
    ShowActive(form);
    DisableFormControls(Globals().MainForm);
    Click(form.panel);
    EXPECT_EQ(opened, 0);
}
