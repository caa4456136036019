#include "output/Outputs.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <functional>

#include "platform/OutputFile.h"
#include "screen/msgお待ち.h"
#include "support/FileBytes.h"
#include "support/FullDisk.h"
#include "support/OutputFixture.h"
#include "text/CodePage932.h"

using namespace Qt::StringLiterals;
using enum StaffText;

namespace {

const QString kStart = u"出力開始 テキスト出力"_s, kEnd = u"出力終了 テキスト出力"_s;

/// Message boxes that record the state while they are shown.
class WatchingDialogs : public QueuedDialogs {
  public:
    explicit WatchingDialogs(std::function<void(const QString& text)> callback) : callback_(std::move(callback)) {}
    using QueuedDialogs::ShowMessage;
    void ShowMessage(const QString& text, const QString& /*title*/) override { callback_(text); }

  private:
    std::function<void(const QString& text)> callback_;
};

class TextOutput : public OutputTest {
  protected:
    TextOutput() {
        Globals().TextOutputFileName = folder.filePath(u"a.csv"_s);
        form.SetEnabled(true);
    }
    ~TextOutput() override { UnloadWaitDialog(); }

    static bool WaitDialogShown() { return LoadedForm(u"msgお待ち"_s) != nullptr; }
    static QString Progress() {
        const Form* dialog = LoadedForm(u"msgお待ち"_s);
        return dialog == nullptr ? u"no dialog"_s : dialog->Item(u"lab_件数"_s).Caption();
    }
    QString Notice() const { return form.Plain(u"お知らせ"_s).text; }
    QStringList OutputRows() const { return History().filter(u"出力"_s); }
    void ExpectTidy() const {
        EXPECT_TRUE(form.Enabled());
        EXPECT_FALSE(WaitDialogShown());
        EXPECT_FALSE(Globals().ReportDatabase.IsOpen());
        EXPECT_FALSE(Globals().ReportRecordset.IsOpen());
    }

    QTemporaryDir folder;
};

}  // namespace

TEST_F(TextOutput, WritesTheCheckedRowsAndIsLogged) {
    AddRow({{担当者コード, u"00001"_s}, {担当者名, u"山田"_s}});
    AddRow({{担当者コード, u"00002"_s}}, false);
    RunTextOutput();
    const QList<QByteArray> lines = ReadBytes(Globals().TextOutputFileName).split('\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0].count(','), 32);
    EXPECT_TRUE(lines[1].startsWith("\"\",\"\",\"\x95\x5C\x8E\xA6\x8F\x87\x81\x46"));  // 表示順：
    EXPECT_TRUE(lines[1].contains("\"00001\",\"\x8E\x52\x93\x63\",\"\""));
    EXPECT_EQ(OutputRows(), QStringList({kStart, kEnd}));
    EXPECT_EQ(Notice(), QString());
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
    ExpectTidy();
}

TEST_F(TextOutput, TheFileIsTheWholeWorkTableByteByByte) {
    AddEras();
    Globals().Conditions.DepartmentTo = u"020"_s;
    AddRow({{担当者コード, u"00001"_s},
            {担当者名, u"髙﨑　德"_s},
            {カナ, u"ﾀｶｻｷ"_s},
            {住所A, u"東京都 港区～芝1－2 "_s},
            {生年月日, u"19650403"_s},
            {担当者メモ, u"a,\"b\"\r\nc"_s + QChar(u'\0')}});
    Globals().OfficeCount = 1;
    Globals().Environment.OperatingOfficeCode = u"001"_s;
    Globals().Office.名称 = u"本社"_s;
    AddRow({{担当者コード, u"00002"_s}, {退社日付, u"20200331"_s}});
    RunTextOutput();
    const QString names =
        u"運用事業所コード 運用事業所名 選択条件 コード 氏名 カナ 性別区分名 郵便番号 住所A 住所B 住所C 電話 携帯電話"
        u" EMAIL 事業所名 部門名 セクション名 役職名 在籍区分名 社員区分名 生年月日 入社日付 退社日付 事業所コード"
        u" 部門コード セクションコード 役職コード 表示生年月日 表示入社日付 表示退社日付 担当者メモ 登録日付 更新日付"_s;
    const QString head = u"\"001\",\"本社\",\"部門コード範囲:000～020  表示順：所属コード順\","_s;
    const QString written =
        u'"' + names.split(u' ').join(u"\",\""_s) + u"\"\r\n"_s + head +
        u"\"00001\",\"髙﨑　德\",\"ﾀｶｻｷ\",\"\",\"\",\"東京都 港区～芝1－2 \",\"\",\"\",\"\",\"\","_s +
        u"\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"19650403\",\"\",\"\",\"\",\"\",\"\",\"\",\"昭和40年04月03日\","_s +
        u"\"\",\"\",\"a,\"b\"\r\nc"_s + QChar(u'\0') + u"\",\"\",\"\"\r\n"_s + head +
        u"\"00002\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\","_s +
        u"\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"20200331\",\"\",\"\",\"\",\"\",\"\",\"\","_s +
        u"\"平成32年03月31日\",\"\",\"\",\"\"\r\n"_s;
    EXPECT_EQ(ReadBytes(Globals().TextOutputFileName), Encode932(written).bytes);
}

TEST_F(TextOutput, WithoutAReportDatabaseSaysSoAndLeavesTheFileAlone) {
    WriteBytes(Globals().TextOutputFileName, "old");
    Globals().Layout.ReportDbKind = FileKind::None;
    AddRows(1);
    RunTextOutput();
    EXPECT_EQ(services.dialogs.Texts(), QStringList{u"帳票が使用できません。"_s});
    EXPECT_EQ(ReadBytes(Globals().TextOutputFileName), "old");
    EXPECT_TRUE(OutputRows().isEmpty());
    ExpectTidy();
}

TEST_F(TextOutput, WithoutMarkedRowsSaysSoAndNeitherMakesNorEmptiesAFile) {
    AddRow({}, false);
    RunTextOutput();
    EXPECT_FALSE(QFile::exists(Globals().TextOutputFileName));
    WriteBytes(Globals().TextOutputFileName, "old");
    RunTextOutput();
    EXPECT_EQ(services.dialogs.Texts(), QStringList(2, u"出力情報が有りません"_s));
    EXPECT_EQ(ReadBytes(Globals().TextOutputFileName), "old");
    EXPECT_TRUE(OutputRows().isEmpty());
    ExpectTidy();
}

TEST_F(TextOutput, FileInUseIsShownAfterTheTableIsFilled) {
    const auto other = platform::OutputFile::Open(Globals().TextOutputFileName);
    ASSERT_NE(other, nullptr);
    AddRows(2);
    RunTextOutput();
    EXPECT_EQ(services.dialogs.Texts(), QStringList{Globals().TextOutputFileName + u"が使用中です。"_s});
    EXPECT_EQ(ReadBytes(Globals().TextOutputFileName), "");
    EXPECT_EQ(WorkColumn(u"コード"_s).size(), 2);
    EXPECT_EQ(OutputRows(), QStringList({kStart, kEnd}));
    ExpectTidy();
}

TEST_F(TextOutput, MessagesAreShownOverTheWaitDialog) {
    QStringList shown;
    platform::Services().dialogs = std::make_unique<WatchingDialogs>([&](const QString& text) {
        EXPECT_TRUE(WaitDialogShown());
        EXPECT_TRUE(Globals().ReportDatabase.IsOpen());
        shown << text + (form.Enabled() ? u" enabled"_s : u" disabled"_s);
    });
    Globals().TextOutputFileName = folder.path();
    RunTextOutput();
    AddRows(1);
    RunTextOutput();
    EXPECT_EQ(shown, QStringList({u"出力情報が有りません enabled"_s, folder.path() + u"が使用中です。 disabled"_s}));
    ExpectTidy();
}

TEST_F(TextOutput, WriteErrorPropagatesWithoutCleanup) {
    const FullDisk full;
    AddRows(1);
    EXPECT_EQ(FailureOf(RunTextOutput).number, 61);
    EXPECT_FALSE(form.Enabled());
    EXPECT_TRUE(WaitDialogShown());
    EXPECT_TRUE(Globals().ReportDatabase.IsOpen());
    EXPECT_TRUE(Globals().ReportRecordset.IsOpen());
    EXPECT_EQ(OutputRows(), QStringList{kStart});
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(TextOutput, BuildErrorLeavesTheWaitDialog) {
    installation.Report().Execute(u"ALTER TABLE 要員名簿照会 DROP COLUMN EMAIL"_s);
    AddRows(1);
    EXPECT_EQ(FailureOf(RunTextOutput).number, platform::kItemNotFound);
    EXPECT_TRUE(form.Enabled());
    EXPECT_TRUE(WaitDialogShown());
    EXPECT_TRUE(Globals().ReportDatabase.IsOpen());
    EXPECT_TRUE(OutputRows().isEmpty());
    EXPECT_FALSE(QFile::exists(Globals().TextOutputFileName));
}

TEST_F(TextOutput, OutputWorksAfterAFailedOne) {
    installation.Report().Execute(u"ALTER TABLE 要員名簿照会 DROP COLUMN EMAIL"_s);
    AddRows(1);
    EXPECT_EQ(FailureOf(RunTextOutput).number, platform::kItemNotFound);
    installation.Report().Execute(u"ALTER TABLE 要員名簿照会 ADD COLUMN EMAIL TEXT"_s);
    RunTextOutput();
    EXPECT_TRUE(QFile::exists(Globals().TextOutputFileName));
    ExpectTidy();
}

TEST_F(TextOutput, MissingReportDatabaseThrowsBeforeAnythingIsShown) {
    ASSERT_TRUE(QFile::remove(installation.Report().Path()));
    AddRows(1);
    EXPECT_NE(FailureOf(RunTextOutput).number, 0);
    ExpectTidy();
}

TEST_F(TextOutput, OnlyLostCharactersShowANotice) {
    AddRow({{担当者名, u"𠮷野"_s}, {住所A, u"鷗町"_s}});
    AddRow({{担当者名, u"森鷗外"_s}});
    AddRow({{担当者名, u"山田"_s}});
    RunTextOutput();
    EXPECT_EQ(Notice(), u"2行の4文字はシフトJISにないため「?」で出力しました。"_s);
    EXPECT_EQ(OutputRows(), QStringList({kStart, kEnd}));
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(TextOutput, NextOutputClearsOnlyTheNoticeOfLostCharacters) {
    form.Plain(u"お知らせ"_s).text = u"3文字オーバーです。"_s;
    AddRow({{担当者名, u"山田"_s}});
    RunTextOutput();
    EXPECT_EQ(Notice(), u"3文字オーバーです。"_s);
    Globals().Rows.SetText(担当者名, 0, u"𠮷"_s);
    RunTextOutput();
    EXPECT_EQ(Notice(), u"1行の2文字はシフトJISにないため「?」で出力しました。"_s);
    Globals().Rows.SetText(担当者名, 0, u"é"_s);
    RunTextOutput();
    EXPECT_EQ(Notice(), u"1行の1文字はシフトJISにないため「?」で出力しました。"_s);
    Globals().Rows.SetText(担当者名, 0, u"山田"_s);
    RunTextOutput();
    EXPECT_EQ(Notice(), QString());
}

TEST_F(TextOutput, ProcessesNoEvents) {
    AddRows(3);
    Globals().Flags.NameListGiven = true;
    DescribedSelection window(u"wnd担当者名複数指定"_s, QString());
    int arrived = 0;
    window.whenAsked = [&] {
        QMetaObject::invokeMethod(
            qApp, [&] { ++arrived; }, Qt::QueuedConnection);
    };
    services.clock.step = std::chrono::milliseconds(700);
    RunTextOutput();
    EXPECT_EQ(window.asked, 3);
    EXPECT_EQ(arrived, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(arrived, 3);
}

TEST_F(TextOutput, ALongOutputShowsHowManyRowsAreDoneAndAShortOneNothing) {
    AddRows(3);
    Globals().Flags.NameListGiven = true;
    DescribedSelection window(u"wnd担当者名複数指定"_s, QString());
    QStringList seen;
    window.whenAsked = [&] { seen << Progress(); };
    RunTextOutput();
    EXPECT_EQ(seen, QStringList(3, QString()));
    seen.clear();
    services.clock.step = std::chrono::milliseconds(300);
    RunTextOutput();
    EXPECT_EQ(seen, QStringList({QString(), QString(), u"データ作成 2 / 3 件"_s}));
    const FullDisk full;
    EXPECT_EQ(FailureOf(RunTextOutput).number, 61);
    EXPECT_EQ(Progress(), u"ファイル書込み 3 / 3 件"_s);
}

TEST_F(TextOutput, ColumnsBeyondTheProgramsOwnAreWrittenAsWell) {
    installation.Report().Execute(u"ALTER TABLE 要員名簿照会 ADD COLUMN 支給額 CURRENCY"_s);
    AddRows(1);
    RunTextOutput();
    const QList<QByteArray> lines = ReadBytes(Globals().TextOutputFileName).split('\n');
    EXPECT_TRUE(lines[0].endsWith(",\"\x8E\x78\x8B\x8B\x8A\x7A\"\r"));
    EXPECT_TRUE(lines[1].endsWith(",\"\", \r"));
}
