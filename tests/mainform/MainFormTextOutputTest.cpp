#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest/QTest>

#include "globals/ProgramGlobals.h"
#include "screen/Form.h"
#include "screen/msgお待ち.h"
#include "support/FileBytes.h"
#include "support/FullDisk.h"
#include "support/MainFormFixture.h"
#include "text/CodePage932.h"

using namespace Qt::StringLiterals;

namespace {

class TextOutputButton : public MainFormTest {
  protected:
    TextOutputButton() { QDir::setCurrent(QDir::tempPath()); }
    void TearDown() override {
        UnloadWaitDialog();
        MainFormTest::TearDown();
        QDir::setCurrent(QDir::rootPath());
    }

    QString Target() const { return folder.filePath(u"名簿.csv"_s); }
    /// Presses the button; the save dialog returns the path.
    void OutputTo(const QString& path) {
        services.dialogs.saveAnswers = {path};
        Click(u"btn_テキスト出力"_s);
    }
    void Untick(int row) { Globals().Rows.出力対象[static_cast<size_t>(row)] = 0; }
    QStringList OutputRows() const { return History().filter(u"テキスト出力"_s); }
    static Form* WaitDialog() { return LoadedForm(u"msgお待ち"_s); }

    QTemporaryDir folder;
};

/// Cells of a file without quotes and line breaks in its values.
QList<QStringList> Cells(const QByteArray& bytes) {
    QList<QStringList> rows;
    for (QString line : Decode932(bytes).split(u"\r\n"_s, Qt::SkipEmptyParts)) {
        QStringList row = line.split(u"\",\""_s);
        row.first().remove(0, 1);
        row.last().chop(1);
        rows << row;
    }
    return rows;
}

}  // namespace

TEST_F(TextOutputButton, WritesTheTickedRowsOfTheListWithoutAQuestion) {
    Start();
    Untick(1);
    const int rows = Globals().LastRow;  // one less than the list has
    OutputTo(Target());
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
    const QList<QStringList> cells = Cells(ReadBytes(Target()));
    ASSERT_EQ(cells.size(), rows + 1);
    EXPECT_EQ(cells[0].size(), 33);
    EXPECT_EQ(cells[0].mid(2, 2), QStringList({u"選択条件"_s, u"コード"_s}));
    EXPECT_EQ(cells[1][2], u"在籍区分：在籍  表示順：所属コード順"_s);
    EXPECT_EQ(cells[1][3], Column(u"担当者コード"_s)[0]);
    EXPECT_EQ(cells[2][3], Column(u"担当者コード"_s)[2]);
    EXPECT_EQ(OutputRows(), QStringList({u"出力開始 テキスト出力"_s, u"出力終了 テキスト出力"_s}));
    EXPECT_TRUE(MainForm().Enabled());
    EXPECT_EQ(WaitDialog(), nullptr);
}

TEST_F(TextOutputButton, DialogHasBothKindsAndProposesTheFileChosenLast) {
    Start();
    const QString first = Globals().TextOutputFileName;
    EXPECT_TRUE(first.endsWith(u"/要員名簿照会.CSV"_s));
    OutputTo(Target());
    Click(u"btn_テキスト出力"_s);
    ASSERT_EQ(services.dialogs.saveQuestions.size(), 2);
    EXPECT_EQ(services.dialogs.saveQuestions[0].FileName, first);
    EXPECT_EQ(services.dialogs.saveQuestions[1].FileName, Target());
    EXPECT_EQ(services.dialogs.saveQuestions[0].Filter,
              u"テキスト ファイル (*.txt)|*.txt|CSV ファイル (*.csv)|*.csv"_s);
    EXPECT_EQ(services.dialogs.saveQuestions[0].FilterIndex, 2);
}

TEST_F(TextOutputButton, CancelLeavesWorkTableNameAndHistoryAlone) {
    Start();
    OutputTo(Target());
    const QStringList history = History();
    const QString before = installation.Report().Value(u"SELECT COUNT(*) FROM 要員名簿照会"_s);
    Untick(0);
    Click(u"検索カナ"_s);
    Click(u"btn_テキスト出力"_s);
    EXPECT_EQ(History(), history);
    EXPECT_EQ(installation.Report().Value(u"SELECT COUNT(*) FROM 要員名簿照会"_s), before);
    EXPECT_EQ(Globals().TextOutputFileName, Target());
    EXPECT_EQ(Focused(), u"検索カナ"_s);
}

TEST_F(TextOutputButton, WorkingFolderIsTheProgramsAfterwardsAlsoOnCancel) {
    Start();
    for (const bool cancel : {true, false}) {
        QDir::setCurrent(folder.path());
        if (!cancel) services.dialogs.saveAnswers = {Target()};
        Click(u"btn_テキスト出力"_s);
        EXPECT_EQ(QDir::currentPath(), QFileInfo(installation.ProgramFolder()).canonicalFilePath());
    }
}

TEST_F(TextOutputButton, ReturnsToTheHeadItemThatWasLeftLast) {
    Start();
    Click(u"検索住所"_s);
    OutputTo(Target());
    EXPECT_EQ(Focused(), u"検索住所"_s);
}

TEST_F(TextOutputButton, WithNothingTickedSaysSoAndMakesNoFile) {
    Start();
    for (int row = 0; row <= Globals().LastRow; ++row) Untick(row);
    OutputTo(Target());
    EXPECT_EQ(services.dialogs.Texts(), QStringList{u"出力情報が有りません"_s});
    EXPECT_FALSE(QFile::exists(Target()));
}

TEST_F(TextOutputButton, FileInUseIsShownUnderTheProgramsTitle) {
    Start();
    OutputTo(folder.path());
    EXPECT_EQ(services.dialogs.Texts(), QStringList{folder.path() + u"が使用中です。"_s});
    EXPECT_EQ(services.dialogs.shown.first().title, u"要員名簿照会"_s);
    EXPECT_EQ(OutputRows().size(), 2);
}

TEST_F(TextOutputButton, ReplacesAnExistingFileAndMakesMissingFolders) {
    Start();
    WriteBytes(Target(), "old");
    OutputTo(Target());
    const QByteArray content = ReadBytes(Target());
    EXPECT_TRUE(content.startsWith("\"\x89\x5E\x97\x70"));
    OutputTo(folder.filePath(u"新/規/名簿"_s));
    EXPECT_EQ(ReadBytes(folder.filePath(u"新/規/名簿"_s)), content);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(TextOutputButton, FullDiskIsSilentAndTheProgramCanBeEnded) {
    Start();
    {
        const FullDisk full;
        OutputTo(Target());
    }
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
    EXPECT_FALSE(MainForm().Enabled());
    EXPECT_NE(WaitDialog(), nullptr);
    EXPECT_TRUE(Globals().ReportDatabase.IsOpen());
    EXPECT_EQ(OutputRows(), QStringList{u"出力開始 テキスト出力"_s});
    EXPECT_EQ(QDir::currentPath(), QFileInfo(installation.ProgramFolder()).canonicalFilePath());
    MainForm().close();
    EXPECT_EQ(History().last(), u"終了"_s);
    EXPECT_EQ(services.processes.ends, QList<int>{0});
}

TEST_F(TextOutputButton, AMissingReportDatabaseSaysNothing) {
    Start();
    ASSERT_TRUE(QFile::remove(installation.Report().Path()));
    OutputTo(Target());
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
    EXPECT_FALSE(QFile::exists(Target()));
    EXPECT_TRUE(MainForm().Enabled());
    EXPECT_EQ(WaitDialog(), nullptr);
}

TEST_F(TextOutputButton, AnInstallationWithoutReportDatabaseSaysSo) {
    ASSERT_TRUE(QFile::remove(installation.Report().Path()));
    Start();
    OutputTo(Target());
    EXPECT_EQ(services.dialogs.Texts(), QStringList{u"帳票が使用できません。"_s});
}

TEST_F(TextOutputButton, NoticeShowsLostCharacters) {
    installation.General().Execute(u"UPDATE M担当者 SET 氏名 = '森　鷗外' WHERE コード = '00001'"_s);
    Start();
    OutputTo(Target());
    EXPECT_EQ(Item(u"お知らせ"_s).Caption(), u"1行の1文字はシフトJISにないため「?」で出力しました。"_s);
    EXPECT_TRUE(ReadBytes(Target()).contains("\x90\x58\x81\x40?\x8A\x4F"));
}

TEST_F(TextOutputButton, MailButtonsFillTheirOwnTablesOnceTheirPrintIsConfirmed) {
    Start();
    for (const QString& word : {u"封筒"_s, u"はがき"_s, u"宛名ラベル"_s}) {
        const QString count = u"SELECT COUNT(*) FROM 要員名簿照会"_s + word;
        Click(u"btn_"_s + word);
        EXPECT_EQ(installation.Report().Value(count), u"0"_s);
        services.dialogs.answers = {true};
        Click(u"btn_"_s + word);
        EXPECT_NE(installation.Report().Value(count), u"0"_s) << word.toStdString();
    }
    EXPECT_EQ(services.dialogs.Texts().count(u"印刷しますか?"_s), 6);
    EXPECT_EQ(History().filter(u"出力終了 印刷"_s).size(), 3);
}

TEST_F(TextOutputButton, TheFileIsReadBackBySpreadsheetsAsTheSameCells) {
    const QString office = QStandardPaths::findExecutable(u"soffice"_s);
    // Other parts of LibreOffice bring soffice, too.
    if (office.isEmpty() || QStandardPaths::findExecutable(u"localc"_s).isEmpty())
        GTEST_SKIP() << "LibreOffice Calc is not installed";
    Start();
    OutputTo(Target());
    QProcess convert;
    // 44 between fields, 34 around texts, 64 is code page 932; back as UTF-8 (76), all texts quoted.
    convert.start(office, {u"-env:UserInstallation=file://"_s + folder.filePath(u"profile"_s), u"--headless"_s,
                           u"--infilter=CSV:44,34,64,1,,1041,true"_s, u"--convert-to"_s,
                           u"csv:Text - txt - csv (StarCalc):44,34,76,1,,1041,true"_s, u"--outdir"_s,
                           folder.filePath(u"back"_s), Target()});
    ASSERT_TRUE(convert.waitForFinished(110000)) << convert.errorString().toStdString();
    QString back = QString::fromUtf8(ReadBytes(folder.filePath(u"back/名簿.csv"_s)));
    QList<QStringList> cells;
    for (QString line : back.split(u'\n', Qt::SkipEmptyParts)) {
        QStringList row = line.split(u',');
        for (QString& cell : row)
            if (cell.startsWith(u'"')) cell = cell.mid(1, cell.size() - 2);
        cells << row;
    }
    EXPECT_EQ(cells, Cells(ReadBytes(Target())));
}
