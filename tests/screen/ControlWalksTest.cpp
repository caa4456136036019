#include <QtTest/QTest>

#include "globals/ProgramGlobals.h"
#include "inquiry/ConditionProcedures.h"
#include "screen/InputItem.h"
#include "screen/Labels.h"
#include "screen/PlainControls.h"
#include "screen/ScreenTest.h"
#include "screen/TabItem.h"
#include "screen/modクライアント処理.h"

using namespace Qt::StringLiterals;

class ControlWalks : public ScreenTest {
  protected:
    Form form{u"frm要員名簿照会"_s};
    Panel panel{form, form, u"bak_dtla"_s, 0, QString()};
    InputItem name{form, form, u"xField"_s, u"検索名称"_s, -1, {}};
    InputItem kana{form, form, u"xField"_s, u"検索カナ"_s, -1, {}};
    NumItem kind{form, form, u"在籍区分"_s};
    ComboItem list{form, form, u"在籍区分名称"_s};
    Button search{form, form, u"btn_集計検索"_s, u"検索"_s};
    CheckItem box{form, panel, u"chb_出力対象"_s, 0, QString()};
    ScrollItem bar{form, form, u"scl_行"_s};
    TabItem tab{form, form, u"tab_詳細"_s};
    Label label{form, form, u"お知らせ"_s, -1, QString()};
    InputItem pass{form, form, u"xPass"_s, u"暗証番号"_s, -1, {}};
    DisplayItem memo{form, panel, u"xText"_s, u"担当者メモ"_s, 0};
    DisplayItem kanaItem{form, panel, u"xKana"_s, u"カナ"_s, 0};
    DisplayItem zip{form, panel, u"xZip"_s, u"郵便番号"_s, 0};
    DisplayItem telephone{form, panel, u"xTel"_s, u"電話"_s, 0};

    void SetUp() override { Globals().MainForm = &form; }

    Control* NextFrom(Control& wanted) {
        Globals().ListNextItem = &wanted;
        Globals().ListNextItem = FindNextTabItem(Globals().MainForm, Globals().ListNextItem);
        return Globals().ListNextItem;
    }
    QStringList Disabled() const {
        QStringList names;
        for (const Control* control : form.Controls())
            if (!control->Enabled()) names << control->Name();
        return names;
    }
};

TEST_F(ControlWalks, WantedItemThatCanTakeTheFocusStays) { EXPECT_EQ(NextFrom(name), &name); }

TEST_F(ControlWalks, DisabledHiddenOrUnstoppedItemGivesWayToTheNextInTabOrder) {
    name.SetEnabled(false);
    EXPECT_EQ(NextFrom(name), &kana);
    kana.SetVisible(false);
    EXPECT_EQ(NextFrom(name), &kind);
    kind.SetTabStop(false);
    EXPECT_EQ(NextFrom(name), &search);  // a combo box is never chosen
}

TEST_F(ControlWalks, ComboBoxIsNeverChosenAndItsCallerHasToNameIt) { EXPECT_EQ(NextFrom(list), &search); }

TEST_F(ControlWalks, ItemInsideADisabledPanelStillCountsAsEnabled) {
    InputItem inside(form, panel, u"xField"_s, u"中"_s, -1, {});
    panel.SetEnabled(false);
    EXPECT_EQ(NextFrom(inside), &inside);
}

TEST_F(ControlWalks, LastItemThatIsDisabledStaysSinceNothingQualifies) {
    pass.SetTabIndex(100);
    pass.SetEnabled(false);
    EXPECT_EQ(NextFrom(pass), &pass);
    pass.SetFocus();
    EXPECT_EQ(form.ActiveControl(), nullptr);
}

TEST_F(ControlWalks, WantedItemOfAnotherFormIsComparedByItsTabIndexAlone) {
    ThreeItems window(u"wnd部門一覧"_s);
    window.third.SetTabIndex(kana.TabIndex());
    EXPECT_EQ(NextFrom(window.third), &kana);
}

TEST_F(ControlWalks, OfEqualTabIndexesTheLastMadeWins) {
    kana.SetTabIndex(1);
    name.SetTabIndex(1);
    EXPECT_EQ(NextFrom(name), &kana);
}

TEST_F(ControlWalks, WalkSetsNoFocus) {
    NextFrom(name);
    EXPECT_EQ(form.ActiveControl(), nullptr);
}

TEST_F(ControlWalks, DisablesInputControlsAndContainersOnly) {
    DisableFormControls(Globals().MainForm);
    EXPECT_EQ(Disabled(), (QStringList{u"bak_dtla"_s, u"検索名称"_s, u"検索カナ"_s, u"在籍区分"_s, u"在籍区分名称"_s,
                                       u"btn_集計検索"_s, u"chb_出力対象"_s, u"scl_行"_s, u"tab_詳細"_s}));
}

TEST_F(ControlWalks, EnablingAlsoEnablesWhatWasDisabledOnPurpose) {
    name.SetEnabled(false);
    bar.SetEnabled(false);
    DisableFormControls(Globals().MainForm);
    EnableFormControls(Globals().MainForm);
    EXPECT_EQ(Disabled(), QStringList());
}

TEST_F(ControlWalks, HiddenControlsAreLeftAloneInBothDirections) {
    name.SetVisible(false);
    kana.SetVisible(false);
    kana.SetEnabled(false);
    DisableFormControls(Globals().MainForm);
    EXPECT_TRUE(name.Enabled());
    EnableFormControls(Globals().MainForm);
    EXPECT_FALSE(kana.Enabled());
}

TEST_F(ControlWalks, ClassesThatOnlyOneListNamesStayAsTheyAre) {
    for (Control* control : std::initializer_list<Control*>{&pass, &memo, &kanaItem, &zip, &telephone, &label})
        control->SetEnabled(false);
    EnableFormControls(Globals().MainForm);
    EXPECT_EQ(Disabled(),
              (QStringList{u"お知らせ"_s, u"暗証番号"_s, u"担当者メモ"_s, u"カナ"_s, u"郵便番号"_s, u"電話"_s}));
}

TEST_F(ControlWalks, DisablingDuringASearchEmitsNoFocusEvents) {
    ShowActive(form);
    QStringList events;
    for (InputItem* item : {&name, &kana}) {
        item->GotFocus = [&events, item] { events << u'+' + item->Name(); };
        item->LostFocus = [&events, item] { events << u'-' + item->Name(); };
    }
    name.SetFocus();
    events.clear();
    DisableFormControls(Globals().MainForm);
    EnableFormControls(Globals().MainForm);
    QCoreApplication::processEvents();
    EXPECT_EQ(events, QStringList());
    EXPECT_EQ(form.ActiveControl(), nullptr);
    name.SetFocus();
    EXPECT_EQ(events, QStringList(u"+検索名称"_s));
}

TEST_F(ControlWalks, LoadedFormIsFoundByItsExactNameOnly) {
    ThreeItems window(u"wndList"_s);
    window.ShowModeless();
    EXPECT_TRUE(IsFormLoaded(u"wndList"_s));
    EXPECT_FALSE(IsFormLoaded(u"WNDLIST"_s));
    EXPECT_FALSE(IsFormLoaded(u"wndLis"_s));
}

TEST_F(ControlWalks, ResettingTakesBackEveryConditionFlag) {
    ConditionFlags& flags = Globals().Flags;
    const auto all = {&flags.NameListGiven,  &flags.KanaListGiven,  &flags.AddressListGiven,
                      &flags.PhoneListGiven, &flags.ZipListGiven,   &flags.DepartmentPicked,
                      &flags.SectionPicked,  &flags.PositionPicked, &flags.StaffPicked};
    for (bool* flag : all) *flag = true;
    ResetConditionFlags();
    for (const bool* flag : all) EXPECT_FALSE(*flag);
}
