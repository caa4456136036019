#include "screen/ListView.h"
#include "selection/ListWindowFixture.h"
#include "selection/OpenListWindow.h"
#include "selection/StaffListWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

const QString kWindow = u"wnd担当者一覧"_s;

QStringList Distinct(QStringList texts) {
    texts.removeDuplicates();
    return texts;
}

}  // namespace

class StaffListWindowTest : public ListWindowTest {
  protected:
    void OpenStaff(const Works& works) { Open(kWindow, works); }

    void AddPerson(const QString& code, const QString& name, const QString& kana,
                   const QString& department = {}) const {
        installation.AddStaff(code, {{u"氏名"_s, name}, {u"カナ"_s, kana}, {u"部門コード"_s, department}});
    }
};

TEST_F(StaffListWindowTest, HasItsCaptionsLimitsAndColumns) {
    OpenStaff({[](const FormRobot& robot) {
        const QList<QStringList> captions = {
            {u"prg_ttl"_s, u"担当者一覧"_s},
            {u"lab_コード"_s, u"以降"_s},
            {u"btn_コード検索"_s, u"コード検索"_s},
            {u"btn_名称検索"_s, u"名称検索"_s},
            {u"btn_カナ検索"_s, u"カナ検索"_s},
            {u"btn_部門コード検索"_s, u"部門検索"_s},
            {u"btn_複合検索"_s, u"検索"_s},
            {u"btn_セクションコード検索"_s, u"部署検索"_s},
            {u"btn_否定検索"_s, u"否検索"_s},
            {u"btn_画面クリア"_s, u"条件ｸﾘｱ"_s},
            {u"btn_戻る"_s, u"戻る"_s},
            {u"lab_注意"_s, u"一回の検索で1000件までを表示します。"_s},
        };
        for (const QStringList& caption : captions) EXPECT_EQ(robot.Item(caption[0]).Caption(), caption[1]);
        EXPECT_EQ(robot.Window().windowTitle(), u"担当者一覧"_s);
        const QList<std::pair<QString, int>> lengths = {{u"コード"_s, 5},       {u"名称"_s, 30},
                                                        {u"カナ"_s, 20},        {u"部門コード"_s, 3},
                                                        {u"部門名"_s, 20},      {u"セクションコード"_s, 3},
                                                        {u"セクション名"_s, 20}};
        for (const auto& [item, length] : lengths) EXPECT_EQ(robot.Item(item).MaxLength(), length);
        EXPECT_EQ(robot.Item(u"コード"_s).MaxValue(), 99999);
        EXPECT_EQ(robot.Item(u"部門コード"_s).MaxValue(), 999);
        const QStringList titles = {u"コード"_s, u"氏名"_s, u"事業所"_s, u"部門"_s, u"セクション"_s};
        const QList<int> widths = {50, 167, 153, 153, 153};
        for (int column = 0; column < titles.size(); ++column) {
            EXPECT_EQ(robot.List().model()->headerData(column, Qt::Horizontal).toString(), titles[column]);
            EXPECT_EQ(robot.List().header()->sectionSize(column), widths[column]);
        }
        GoBack(robot);
    }});
}

TEST_F(StaffListWindowTest, InputMethodFollowsTheItemAndKanaBecomeHalfWidth) {
    const Qt::InputMethodHints digits = Qt::ImhPreferLatin | Qt::ImhDigitsOnly;
    struct Mode {
        QString item;
        Qt::InputMethodHints hints;
        QString kept;
    };
    const QList<Mode> modes = {{u"コード"_s, digits, u"1"_s},
                               {u"名称"_s, Qt::ImhNone, u"がっこう1"_s},
                               {u"カナ"_s, Qt::ImhNone, u"ｶﾞｯｺｳ1"_s},
                               {u"部門コード"_s, digits, u"1"_s},
                               {u"セクションコード"_s, digits, u"1"_s}};
    for (const QString& name : {kWindow, u"wnd担当者選択一覧"_s}) {
        Form& window = *MakeStaffListWindow(name);
        window.ShowModeless();
        for (const Mode& mode : modes) {
            auto& item = static_cast<QLineEdit&>(window.Item(mode.item).Widget());
            EXPECT_EQ(item.inputMethodHints(), mode.hints) << mode.item.toStdString();
            EXPECT_EQ(item.inputMethodQuery(Qt::ImEnabled).toBool(), mode.hints == Qt::ImhNone)
                << mode.item.toStdString();
            QInputMethodEvent event;
            event.setCommitString(u"がっこう1"_s);
            QApplication::sendEvent(&item, &event);
            EXPECT_EQ(window.Item(mode.item).Text(), mode.kept) << mode.item.toStdString();
        }
    }
}

TEST_F(StaffListWindowTest, InitiallyListsEnrolledStaffOfAllClasses) {
    installation.ClearStaff();
    installation.AddStaff(u"00002"_s, {{u"社員区分"_s, u"3"_s}});
    installation.AddStaff(u"00001"_s);
    installation.AddStaff(u"00003"_s, {{u"在籍区分"_s, u"1"_s}});
    OpenStaff({[](const FormRobot& robot) {
        EXPECT_EQ(robot.Codes(), (QStringList{u"00001"_s, u"00002"_s}));
        EXPECT_EQ(robot.Text(u"在籍区分名称"_s), u"在籍"_s);
        EXPECT_EQ(robot.Text(u"社員区分名称"_s), u"全て"_s);
        EXPECT_EQ(robot.List().SelectedRow(), -1);
        robot.Click(u"在籍区分"_s);
        robot.TypeText(u"2"_s);
        EXPECT_EQ(robot.Text(u"在籍区分名称"_s), u"全て"_s);
        EXPECT_EQ(robot.Codes().size(), 2) << "a class alone searches nothing";
        robot.Click(u"btn_複合検索"_s);
        EXPECT_EQ(robot.Codes(), (QStringList{u"00001"_s, u"00002"_s, u"00003"_s}));
        EXPECT_EQ(robot.Focused(), u"List担当者"_s);
        GoBack(robot);
    }});
}

TEST_F(StaffListWindowTest, ClassesAreChosenByNumberOrFromTheirList) {
    installation.ClearStaff();
    installation.AddStaff(u"00001"_s, {{u"社員区分"_s, u"0"_s}});
    installation.AddStaff(u"00002"_s, {{u"社員区分"_s, u"3"_s}});
    installation.AddStaff(u"00003"_s, {{u"在籍区分"_s, u"1"_s}, {u"社員区分"_s, u"3"_s}});
    OpenStaff({[](const FormRobot& robot) {
        robot.Click(u"社員区分"_s);
        robot.TypeText(u"3"_s);
        EXPECT_EQ(robot.Item(u"社員区分名称"_s).ListIndex(), 3);
        robot.Click(u"btn_複合検索"_s);
        EXPECT_EQ(robot.Codes(), QStringList{u"00002"_s});
        robot.Item(u"在籍区分名称"_s).SetListIndex(1);
        EXPECT_EQ(robot.Item(u"在籍区分"_s).Value(), 1);
        robot.Click(u"btn_複合検索"_s);
        EXPECT_EQ(robot.Codes(), QStringList{u"00003"_s});
        for (const QString& item : {u"在籍区分"_s, u"社員区分"_s}) {
            robot.Item(item + u"名称"_s).SetListIndex(0);
            EXPECT_EQ(robot.Item(item).Value(), 0);
        }
        robot.Click(u"btn_複合検索"_s);
        EXPECT_EQ(robot.Codes(), QStringList{u"00001"_s});
        GoBack(robot);
    }});
}

TEST_F(StaffListWindowTest, CellsOfMissingMastersAreEmpty) {
    installation.ClearStaff();
    installation.AddStaff(u"00001"_s, {{u"部門コード"_s, u"777"_s}, {u"事業所コード"_s, u"001"_s}});
    OpenStaff({[](const FormRobot& robot) {
        const ListRow& row = robot.List().Row(0);
        EXPECT_EQ(row.key, u"C00001"_s);
        EXPECT_EQ(row.subItems, (QStringList{QString(), u"本社"_s, QString(), QString()}));
        GoBack(robot);
    }});
}

TEST_F(StaffListWindowTest, CallersCodeFillsItsItemAndIsUsedUp) {
    Open(kWindow, u"M担当者.コード >= '00020'"_s, {[](const FormRobot& robot) {
             EXPECT_EQ(robot.Text(u"コード"_s), u"00020"_s);
             EXPECT_EQ(Globals().ListCondition, QString());
             ASSERT_FALSE(robot.Codes().isEmpty());
             EXPECT_GE(robot.Codes().first(), u"00020"_s);
             EXPECT_TRUE(robot.Item(u"btn_コード検索"_s).Enabled());
             GoBack(robot);
         }});
}

TEST_F(StaffListWindowTest, CodeThatIsStillBeingTypedIsFormattedToFiveDigits) {
    Open(kWindow, u"M担当者.コード >= '20'"_s, {[](const FormRobot& robot) {
             EXPECT_EQ(robot.Text(u"コード"_s), u"00020"_s);
             ASSERT_FALSE(robot.Codes().isEmpty());
             GoBack(robot);
         }});
}

TEST_F(StaffListWindowTest, CallersDepartmentAndSectionAreShownWithTheirNames) {
    Open(kWindow, u"M担当者.部門コード = '010' AND M担当者.セクションコード = '011'"_s, {[](const FormRobot& robot) {
             EXPECT_EQ(robot.Text(u"部門コード"_s), u"010"_s);
             EXPECT_EQ(robot.Text(u"部門名"_s), u"総務部"_s);
             EXPECT_EQ(robot.Text(u"セクションコード"_s), u"011"_s);
             EXPECT_EQ(robot.Text(u"セクション名"_s), u"総務課"_s);
             EXPECT_EQ(Distinct(robot.Column(3)), QStringList{u"総務部"_s});
             GoBack(robot);
         }});
}

TEST_F(StaffListWindowTest, CallersTermOfAnotherColumnFillsNoItem) {
    Open(kWindow, u"M担当者.役職コード = '010'"_s, {[](const FormRobot& robot) {
             for (const QString& item : {u"コード"_s, u"部門コード"_s, u"セクションコード"_s})
                 EXPECT_EQ(robot.Text(item), QString()) << item.toStdString();
             EXPECT_EQ(Globals().ListCondition, u"M担当者.役職コード = '010'"_s);
             GoBack(robot);
         }});
}

TEST_F(StaffListWindowTest, HiddenWindowUsesALaterConditionUntilItIsCleared) {
    installation.ReplaceStaff(30);
    Open(kWindow, u"M担当者.コード >= '00010'"_s, {[](const FormRobot& robot) { GoBack(robot); }});
    Open(kWindow, u"M担当者.コード >= '00025'"_s, {[](const FormRobot& robot) {
             EXPECT_EQ(robot.Codes().size(), 21) << "the earlier list";
             EXPECT_EQ(robot.Text(u"コード"_s), u"00010"_s);
             robot.Click(u"btn_コード検索"_s);
             EXPECT_EQ(robot.Codes().first(), u"00025"_s);
             EXPECT_EQ(Globals().ListCondition, u"M担当者.コード >= '00025'"_s);
             robot.Enter(u"コード"_s, u"28"_s);
             robot.Click(u"btn_複合検索"_s);
             EXPECT_EQ(robot.Codes(), (QStringList{u"00028"_s, u"00029"_s, u"00030"_s}));
             robot.Click(u"btn_画面クリア"_s);
             EXPECT_EQ(Globals().ListCondition, QString());
             EXPECT_EQ(robot.Codes().size(), 30);
             GoBack(robot);
         }});
}

TEST_F(StaffListWindowTest, ClearEmptiesTheTextsAndKeepsTheClasses) {
    OpenStaff({[](const FormRobot& robot) {
        robot.Enter(u"コード"_s, u"3"_s);
        robot.Enter(u"カナ"_s, u"ｱ"_s);
        robot.Enter(u"名称"_s, u"山"_s);
        robot.Enter(u"部門コード"_s, u"10"_s);
        robot.Enter(u"セクションコード"_s, u"11"_s);
        robot.Click(u"在籍区分"_s);
        robot.TypeText(u"1"_s);
        robot.Click(u"btn_画面クリア"_s);
        for (const QString& item : {u"コード"_s, u"カナ"_s, u"名称"_s, u"部門コード"_s, u"部門名"_s,
                                    u"セクションコード"_s, u"セクション名"_s})
            EXPECT_EQ(robot.Text(item), QString()) << item.toStdString();
        EXPECT_EQ(robot.Item(u"在籍区分"_s).Value(), 1);
        EXPECT_EQ(robot.Focused(), u"List担当者"_s);
        for (const QString& button : {u"btn_コード検索"_s, u"btn_カナ検索"_s, u"btn_名称検索"_s,
                                      u"btn_部門コード検索"_s, u"btn_セクションコード検索"_s})
            EXPECT_FALSE(robot.Item(button).Enabled()) << button.toStdString();
        for (const QString& button : {u"btn_複合検索"_s, u"btn_否定検索"_s}) EXPECT_TRUE(robot.Item(button).Enabled());
        GoBack(robot);
    }});
}

TEST_F(StaffListWindowTest, SearchButtonsFollowTheirItemsWhileTheyAreTyped) {
    OpenStaff({[](const FormRobot& robot) {
        EXPECT_FALSE(robot.Item(u"btn_名称検索"_s).Enabled());
        robot.Click(u"名称"_s);
        robot.TypeText(u" "_s);
        EXPECT_FALSE(robot.Item(u"btn_名称検索"_s).Enabled());
        robot.TypeText(u"山"_s);
        EXPECT_TRUE(robot.Item(u"btn_名称検索"_s).Enabled());
        robot.Press(Qt::Key_Backspace);
        EXPECT_FALSE(robot.Item(u"btn_名称検索"_s).Enabled());
        GoBack(robot);
    }});
}

TEST_F(StaffListWindowTest, ButtonSearchesForTheFormattedCode) {
    installation.ReplaceStaff(30);
    OpenStaff({[](const FormRobot& robot) {
        robot.Type(u"コード"_s, u"27"_s);
        EXPECT_EQ(robot.Text(u"コード"_s), u"27"_s);
        robot.Click(u"btn_コード検索"_s);
        EXPECT_EQ(robot.Text(u"コード"_s), u"00027"_s);
        EXPECT_EQ(robot.Codes(), (QStringList{u"00027"_s, u"00028"_s, u"00029"_s, u"00030"_s}));
        GoBack(robot);
    }});
    EXPECT_TRUE(History().isEmpty());
}

TEST_F(StaffListWindowTest, TextThatWasBeingTypedWhenEscHidTheWindowIsSearchedLater) {
    installation.ReplaceStaff(12);
    OpenStaff({[](const FormRobot& robot) {
        robot.Type(u"名称"_s, u"氏名12"_s);
        robot.Press(Qt::Key_Escape);
    }});
    OpenStaff({[](const FormRobot& robot) {
        ASSERT_EQ(robot.Text(u"名称"_s), u"氏名12"_s);
        robot.Click(u"btn_複合検索"_s);
        EXPECT_EQ(robot.Codes(), QStringList{u"00012"_s});
        GoBack(robot);
    }});
}

TEST_F(StaffListWindowTest, EachSearchFindsByItsOwnItemAlone) {
    installation.ClearStaff();
    AddPerson(u"00001"_s, u"山田　太郎"_s, u"ﾔﾏﾀﾞ ﾀﾛｳ"_s, u"010"_s);
    AddPerson(u"00002"_s, u"田中　花子"_s, u"ﾀﾅｶ ﾊﾅｺ"_s, u"020"_s);
    AddPerson(u"00003"_s, u"青山　一郎"_s, u"ｱｵﾔﾏ ｲﾁﾛｳ"_s, u"020"_s);
    OpenStaff({[](const FormRobot& robot) {
        robot.Enter(u"コード"_s, u"2"_s);
        robot.Enter(u"カナ"_s, u"やま"_s);
        robot.Enter(u"名称"_s, u"山"_s);
        robot.Enter(u"部門コード"_s, u"20"_s);
        const QList<std::pair<QString, QStringList>> searches = {
            {u"btn_コード検索"_s, {u"00002"_s, u"00003"_s}},
            {u"btn_カナ検索"_s, {u"00003"_s, u"00001"_s}},
            {u"btn_名称検索"_s, {u"00001"_s, u"00003"_s}},
            {u"btn_部門コード検索"_s, {u"00002"_s, u"00003"_s}},
            {u"btn_複合検索"_s, {u"00003"_s}},
            {u"btn_否定検索"_s, {}},
        };
        for (const auto& [button, codes] : searches) {
            robot.Click(button);
            EXPECT_EQ(robot.Codes(), codes) << button.toStdString();
        }
        GoBack(robot);
    }});
}

TEST_F(StaffListWindowTest, NegativeSearchListsLowerCodesAndOtherEnrolments) {
    installation.ClearStaff();
    installation.AddStaff(u"00001"_s, {{u"在籍区分"_s, u"1"_s}});
    installation.AddStaff(u"00002"_s);
    installation.AddStaff(u"00009"_s, {{u"在籍区分"_s, u"1"_s}});
    OpenStaff({[](const FormRobot& robot) {
        robot.Enter(u"コード"_s, u"5"_s);
        robot.Click(u"btn_否定検索"_s);
        EXPECT_EQ(robot.Codes(), QStringList{u"00001"_s});
        GoBack(robot);
    }});
}

TEST_F(StaffListWindowTest, SearchTextOfQuotesAndWildcardsRunsAndFindsByThem) {
    installation.ClearStaff();
    AddPerson(u"00001"_s, u"O'Brien"_s, u"ｵﾌﾞﾗｲｴﾝ"_s);
    AddPerson(u"00002"_s, u"山田"_s, u"ﾔﾏﾀﾞ"_s);
    OpenStaff({[](const FormRobot& robot) {
        const QList<std::pair<QString, int>> texts = {{u"O'B"_s, 1}, {u"'"_s, 1},     {u"''"_s, 0},    {u"%"_s, 2},
                                                      {u"_"_s, 2},   {u"山%田"_s, 1}, {u"[山]田"_s, 1}};
        for (const auto& [text, found] : texts) {
            robot.Enter(u"名称"_s, text);
            robot.Click(u"btn_名称検索"_s);
            EXPECT_EQ(robot.Codes().size(), found) << text.toStdString();
        }
        GoBack(robot);
    }});
    EXPECT_TRUE(History().isEmpty()) << History().join(u'\n').toStdString();
}

TEST_F(StaffListWindowTest, FailedSearchGivesAnEmptyListSilently) {
    installation.ReplaceStaff(1000);
    OpenStaff({[this](const FormRobot& robot) {
        ASSERT_TRUE(robot.Item(u"lab_注意"_s).Visible());
        installation.General().Execute(u"DROP TABLE M担当者"_s);
        robot.Click(u"btn_複合検索"_s);
        EXPECT_EQ(robot.Codes(), QStringList());
        EXPECT_FALSE(robot.Item(u"lab_注意"_s).Visible());
        GoBack(robot);
    }});
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
    EXPECT_TRUE(History().last().contains(u"SELECT TOP 1000"_s));
}

TEST_F(StaffListWindowTest, NoticeAppearsWithTheThousandthRow) {
    for (const int staff : {999, 1000, 1001}) {
        installation.ReplaceStaff(staff);
        OpenStaff({[&](const FormRobot& robot) {
            robot.Click(u"btn_画面クリア"_s);
            EXPECT_EQ(robot.Codes().size(), qMin(staff, 1000));
            EXPECT_EQ(robot.Item(u"lab_注意"_s).Visible(), staff >= 1000) << staff;
            GoBack(robot);
        }});
    }
}

TEST_F(StaffListWindowTest, LoadEndsByItsOwnCountHoweverManyRowsTheEngineStillHas) {
    installation.ReplaceStaff(30);
    // A counter starting at 990 stops after ten rows; TOP 1000 would return all thirty.
    auto* window = new StaffListWindow(
        {{Range::Staff, ListUse::Lookup, {}, {}, u"List担当者"_s, {{u"コード"_s, 750, u"コード"_s}}, {}}, 990});
    window->ShowModeless();
    EXPECT_EQ(window->List().RowCount(), 10);
    EXPECT_EQ(window->List().Row(9).text, u"00010"_s);
    EXPECT_TRUE(window->Item(u"lab_注意"_s).Visible());
}

TEST_F(StaffListWindowTest, InvalidConditionGivesAnEmptyListUntilItIsCleared) {
    installation.ReplaceStaff(3);
    Open(kWindow, u"そんな条件 は ない"_s, {[](const FormRobot& robot) {
             EXPECT_EQ(robot.Codes(), QStringList());
             EXPECT_FALSE(robot.Item(u"lab_注意"_s).Visible());
             EXPECT_EQ(Globals().ListCondition, u"そんな条件 は ない"_s);
             robot.Click(u"btn_画面クリア"_s);
             EXPECT_EQ(robot.Codes().size(), 3);
             GoBack(robot);
         }});
    EXPECT_EQ(History().size(), 1);
    EXPECT_TRUE(History().last().contains(u" WHERE (そんな条件 は ない) AND "_s)) << History().last().toStdString();
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(StaffListWindowTest, CallersTermIsTakenWhateverItsLetterCase) {
    installation.ReplaceStaff(30);
    Open(kWindow, u"m担当者.コード >= '00029'"_s, {[](const FormRobot& robot) {
             EXPECT_EQ(robot.Text(u"コード"_s), u"00029"_s);
             EXPECT_EQ(Globals().ListCondition, QString());
             EXPECT_EQ(robot.Codes(), (QStringList{u"00029"_s, u"00030"_s}));
             GoBack(robot);
         }});
}

TEST_F(StaffListWindowTest, MissingAndEmptyClassTablesLeaveAllAloneAndNarrowNothing) {
    installation.ClearStaff();
    installation.AddStaff(u"00001"_s);
    installation.AddStaff(u"00002"_s, {{u"在籍区分"_s, u"1"_s}});
    installation.General().Execute(u"DROP TABLE K在籍区分; DELETE FROM K社員区分"_s);
    OpenStaff({[](const FormRobot& robot) {
        for (const QString& item : {u"在籍区分"_s, u"社員区分"_s}) {
            EXPECT_EQ(robot.Item(item).MaxValue(), 0);
            EXPECT_EQ(robot.Text(item + u"名称"_s), u"全て"_s);
        }
        EXPECT_EQ(robot.Codes(), (QStringList{u"00001"_s, u"00002"_s}));
        GoBack(robot);
    }});
}

TEST_F(StaffListWindowTest, FailedClassListQueriesAreLogged) {
    installation.General().Execute(u"DROP TABLE K在籍区分; DROP TABLE K社員区分"_s);
    OpenStaff({GoBack});
    EXPECT_EQ(History(), (QStringList{u"エラー no such table: K在籍区分SELECT * FROM K在籍区分 ORDER BY 区分"_s,
                                      u"エラー no such table: K社員区分SELECT * FROM K社員区分 ORDER BY 区分"_s}));
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(StaffListWindowTest, FailedNameQueryGivesAnEmptyNameAndIsLogged) {
    installation.General().Execute(u"DROP TABLE M部門; DROP TABLE Mセクション"_s);
    Open(kWindow, u"M担当者.部門コード = '010' AND M担当者.セクションコード = '011'"_s, {[](const FormRobot& robot) {
             EXPECT_EQ(robot.Text(u"部門コード"_s), u"010"_s);
             EXPECT_EQ(robot.Text(u"部門名"_s), QString());
             EXPECT_EQ(robot.Text(u"セクションコード"_s), u"011"_s);
             EXPECT_EQ(robot.Text(u"セクション名"_s), QString());
             GoBack(robot);
         }});
    EXPECT_EQ(History().first(2),
              (QStringList{u"エラー no such table: M部門SELECT 名称 FROM M部門 WHERE コード = ''010''"_s,
                           u"エラー no such table: MセクションSELECT 名称 FROM Mセクション WHERE コード = ''011''"_s}));
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(StaffListWindowTest, NullLongNamesAndLetterCodesAreShownUnchanged) {
    installation.ClearStaff();
    installation.General().Execute(
        u"INSERT INTO M担当者 (コード, 氏名, 在籍区分, 社員区分)"
        u" VALUES ('A0001', NULL, '0', '0'), ('Ab''01', '%1', '0', '0')"_s.replace(u"%1"_s, QString(200, u'長')));
    OpenStaff({[](const FormRobot& robot) {
        EXPECT_EQ(robot.Codes(), (QStringList{u"A0001"_s, u"Ab'01"_s}));
        EXPECT_EQ(robot.Column(1), (QStringList{QString(), QString(200, u'長')}));
        EXPECT_EQ(robot.List().Row(1).key, u"CAb'01"_s);
        robot.ClickRow(1);
    }});
    EXPECT_EQ(Result().Text(), u"Ab'01"_s);
}

TEST_F(StaffListWindowTest, PastedTextIsLimitedAndSearched) {
    installation.ReplaceStaff(30);
    OpenStaff({[](const FormRobot& robot) {
        const auto paste = [&](const QString& item, const QString& text) {
            QGuiApplication::clipboard()->setText(text);
            robot.Click(item);
            robot.Press(Qt::Key_Insert, Qt::ShiftModifier);
        };
        paste(u"部門コード"_s, u"1' OR '2' = '345"_s);
        EXPECT_EQ(robot.Text(u"部門コード"_s), u"123"_s);
        paste(u"名称"_s, QString(200, u'山'));
        EXPECT_EQ(robot.Text(u"名称"_s), QString(30, u'山'));
        paste(u"カナ"_s, QString(200, u'ﾔ'));
        EXPECT_EQ(robot.Text(u"カナ"_s), QString(20, u'ﾔ'));
        paste(u"コード"_s, u"2'9x"_s);
        EXPECT_EQ(robot.Text(u"コード"_s), u"29"_s);
        robot.Click(u"btn_コード検索"_s);
        EXPECT_EQ(robot.Codes(), (QStringList{u"00029"_s, u"00030"_s}));
        GoBack(robot);
    }});
    EXPECT_TRUE(History().isEmpty()) << History().join(u'\n').toStdString();
}

TEST_F(StaffListWindowTest, DialectWithoutAFromEndsEmptyAndSaysSoInTheHistory) {
    Globals().GeneralDatabase.db = u"X"_s;
    OpenStaff({[](const FormRobot& robot) {
        EXPECT_EQ(robot.Codes(), QStringList());
        GoBack(robot);
    }});
    EXPECT_TRUE(
        History().last().endsWith(u"SELECT TOP 1000 M担当者.コード,M担当者.氏名,M事業所.名称 AS 事業所名,M部門.名称 AS "
                                  u"部門名,Mセクション.名称 AS "
                                  u"セクション名 WHERE M担当者.在籍区分 = ''0'' ORDER BY M担当者.コード"_s))
        << History().last().toStdString();
}

TEST_F(StaffListWindowTest, OuterJoinOperatorsKeepTopAndAnErrorGivesAnEmptyList) {
    Globals().GeneralDatabase.db = u"O"_s;
    OpenStaff({[](const FormRobot& robot) {
        EXPECT_EQ(robot.Codes(), QStringList());
        EXPECT_FALSE(robot.Item(u"lab_注意"_s).Visible());
        GoBack(robot);
    }});
    ASSERT_EQ(History().size(), 1);
    EXPECT_TRUE(History().last().endsWith(
        u"SELECT TOP 1000 M担当者.コード,M担当者.氏名,"
        u"M事業所.名称 AS 事業所名,M部門.名称 AS 部門名,Mセクション.名称 AS セクション名"
        u" FROM Mセクション,M部門,M事業所,M担当者 WHERE M事業所.コード(+) = M担当者.事業所コード"
        u" AND M部門.コード(+) = M担当者.部門コード AND Mセクション.コード(+) = M担当者.セクションコード"
        u" AND M担当者.在籍区分 = ''0'' ORDER BY M担当者.コード"_s))
        << History().last().toStdString();
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(StaffListWindowTest, CaretPassesOverTheNamesThatAreOnlyShown) {
    OpenStaff({[](const FormRobot& robot) {
        Control* const next = Globals().ListNextItem;
        robot.Click(u"名称"_s);
        robot.Press(Qt::Key_Tab);
        EXPECT_EQ(robot.Focused(), u"部門コード"_s);
        robot.Press(Qt::Key_Tab);
        EXPECT_EQ(robot.Focused(), u"セクションコード"_s);
        robot.Press(Qt::Key_Backtab);
        EXPECT_EQ(robot.Focused(), u"部門コード"_s);
        robot.Click(u"部門名"_s);
        EXPECT_EQ(robot.Focused(), u"セクションコード"_s);
        robot.Click(u"セクション名"_s);
        EXPECT_EQ(robot.Focused(), u"在籍区分"_s);
        EXPECT_EQ(Globals().ListNextItem, next) << "the caller's";
        GoBack(robot);
    }});
}

TEST_F(StaffListWindowTest, FocusSetsActiveItemExceptForCodes) {
    OpenStaff({[](const FormRobot& robot) {
        for (const QString& item :
             {u"名称"_s, u"カナ"_s, u"在籍区分"_s, u"在籍区分名称"_s, u"社員区分"_s, u"社員区分名称"_s}) {
            Globals().ActiveItem = nullptr;
            robot.Item(item).SetFocus();
            EXPECT_EQ(Globals().ActiveItem, &robot.Item(item)) << item.toStdString();
        }
        for (const QString& item : {u"コード"_s, u"部門コード"_s, u"セクションコード"_s}) {
            Globals().ActiveItem = nullptr;
            robot.Item(item).SetFocus();
            EXPECT_EQ(Globals().ActiveItem, nullptr) << item.toStdString();
        }
        GoBack(robot);
    }});
}

TEST_F(StaffListWindowTest, FirstCtrlActivatesTheItemAndTheSecondOpensItsLookup) {
    OpenStaff({[](const FormRobot& robot) {
                   robot.Click(u"名称"_s);
                   robot.Press(Qt::Key_Tab);
                   ASSERT_EQ(robot.Focused(), u"部門コード"_s);
                   robot.Press(Qt::Key_Control);
                   EXPECT_EQ(Globals().NestedListFlag, 0);
                   EXPECT_EQ(Globals().ActiveItem, &robot.Item(u"部門コード"_s));
                   robot.Press(Qt::Key_Control);
                   EXPECT_EQ(robot.Text(u"部門コード"_s), u"020"_s);
                   GoBack(robot);
               },
               [](const FormRobot& robot) {
                   EXPECT_EQ(robot.Window().Name(), u"wnd部門一覧"_s);
                   EXPECT_EQ(Globals().NestedListFlag, 1);
                   robot.ClickRow(1);
               }});
}

TEST_F(StaffListWindowTest, SecondDoubleClickOpensTheLookupOfSections) {
    OpenStaff({[](const FormRobot& robot) {
                   robot.DoubleClick(u"セクションコード"_s);
                   EXPECT_EQ(Globals().NestedListFlag, 0);
                   robot.DoubleClick(u"セクションコード"_s);
                   EXPECT_EQ(robot.Text(u"セクションコード"_s), u"012"_s);
                   EXPECT_EQ(robot.Text(u"セクション名"_s), u"庶務課"_s);
                   EXPECT_EQ(robot.Focused(), u"btn_セクションコード検索"_s);
                   GoBack(robot);
               },
               [](const FormRobot& robot) {
                   EXPECT_EQ(robot.Window().Name(), u"wndセクション一覧"_s);
                   robot.ClickRow(1);
               }});
}

TEST_F(StaffListWindowTest, NestedLookupSetsCodeAndNameAndKeepsTheCaller) {
    Control* const result = &Result();
    Open(kWindow, u"M担当者.氏名 LIKE '%a%'"_s,
         {[&](const FormRobot& robot) {
              Control* const next = Globals().ListNextItem;
              robot.Item(u"部門コード"_s).SetFocus();
              robot.Press(Qt::Key_Control);
              robot.Press(Qt::Key_Control);
              EXPECT_EQ(robot.Text(u"部門コード"_s), u"030"_s);
              EXPECT_EQ(robot.Text(u"部門名"_s), u"経理部"_s);
              EXPECT_EQ(robot.Focused(), u"btn_部門コード検索"_s);
              EXPECT_TRUE(robot.Window().Enabled());
              EXPECT_EQ(Globals().NestedListOwner, nullptr);
              EXPECT_EQ(Globals().NestedListFlag, 0);
              EXPECT_EQ(Globals().ListResultItem, result);
              EXPECT_EQ(Globals().ListNextItem, next);
              EXPECT_FALSE(Caller().Enabled());
              robot.Press(Qt::Key_Return);
              EXPECT_FALSE(robot.Codes().isEmpty());
              EXPECT_EQ(Distinct(robot.Column(3)), QStringList{u"経理部"_s});
              robot.ClickRow(0);
          },
          [&](const FormRobot& robot) {
              EXPECT_FALSE(Globals().NestedListOwner->Enabled());
              EXPECT_EQ(Globals().ListCondition, QString());
              robot.ClickRow(2);
          }});
    EXPECT_NE(Result().Text(), QString());
    EXPECT_TRUE(Caller().Enabled());
}

TEST_F(StaffListWindowTest, EscInTheNestedLookupGoesBackToTheItemAndNoFurther) {
    OpenStaff({[](const FormRobot& robot) {
                   robot.Type(u"部門コード"_s, u"7"_s);
                   robot.Press(Qt::Key_Control);
                   robot.Press(Qt::Key_Control);
                   EXPECT_TRUE(robot.Window().isVisible());
                   EXPECT_TRUE(robot.Window().Enabled());
                   EXPECT_EQ(robot.Focused(), u"部門コード"_s);
                   EXPECT_EQ(robot.Text(u"部門コード"_s), u"7"_s) << "not accepted by that";
                   GoBack(robot);
               },
               [](const FormRobot& robot) { robot.Press(Qt::Key_Escape); }});
}

TEST_F(StaffListWindowTest, OfficeInScopeAndTheCompanyAsAWholeAreSeen) {
    installation.ClearStaff();
    for (const QString& office : {u"000"_s, u"001"_s, u"002"_s})
        installation.AddStaff(u"00"_s + office, {{u"事業所コード"_s, office}});
    Globals().Environment.OperatingOfficeCode = u"001"_s;
    Globals().ScopeOfficeCode = u"002"_s;
    OpenStaff({[](const FormRobot& robot) {
        EXPECT_EQ(robot.Codes(), (QStringList{u"00000"_s, u"00002"_s}));
        GoBack(robot);
    }});
}

TEST_F(StaffListWindowTest, KeysThatArriveDuringASearchChooseNoRow) {
    OpenStaff({[](const FormRobot& robot) {
        for (const QString& button : {u"btn_複合検索"_s, u"btn_画面クリア"_s}) ExpectDroppedKeys(robot, button);
        GoBack(robot);
    }});
    EXPECT_EQ(Result().Text(), QString());
}
