#include "setup/UsageError.h"
#include "setup/storage/Installer.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include "data/Catalogue.h"
#include "setup/sample/Sample.h"
#include "support/SampleInstallation.h"

using namespace Qt::StringLiterals;

namespace {

class InstallerTest : public testing::Test {
  protected:
    InstallerTest() {
        request.folder = folder.filePath(u"suite"_s);
        request.staff = 3;
    }
    QString Make() { return setup::MakeInstallation(request); }
    QStringList Entries(const QString& path) const {
        return QDir(folder.filePath(path))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    void Write(const QString& path, const QByteArray& content) {
        QDir().mkpath(QFileInfo(folder.filePath(path)).path());
        QFile file(folder.filePath(path));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }
    /// Message of the UsageError; empty if there was none.
    QString UsageError() {
        try {
            Make();
        } catch (const setup::UsageError& refusal) {
            return refusal.Description();
        }
        return {};
    }

    QTemporaryDir folder;
    setup::InstallationRequest request;
};

QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

TEST_F(InstallerTest, MakesFoldersDatabasesAndManual) {
    EXPECT_EQ(Make(), folder.filePath(u"suite"_s));
    EXPECT_EQ(Entries(u"."_s), QStringList{u"suite"_s});
    EXPECT_EQ(Entries(u"suite"_s),
              (QStringList{u"conf"_s, u"data"_s, u"manual"_s, u"prgbin"_s, u"report"_s, u"users"_s}));
    EXPECT_EQ(Entries(u"suite/conf"_s), (QStringList{u"pin.key"_s, u"usrcnfg.accdb"_s}));
    EXPECT_EQ(Entries(u"suite/data"_s), QStringList{u"gnrdb.accdb"_s});
    EXPECT_EQ(Entries(u"suite/report"_s), (QStringList{u"repdb.accdb"_s, u"repfrmdb.accdb"_s}));
    EXPECT_FALSE(QImage(folder.filePath(u"suite/prgbin/空白.jpg"_s)).isNull());
    EXPECT_EQ(Bytes(folder.filePath(u"suite/manual/要員名簿照会.doc"_s)), setup::ManualDocument());
}

TEST_F(InstallerTest, DefinitionRowNamesTheGeneralDatabase) {
    const SampleFile configuration(Make() + u"/conf/usrcnfg.accdb"_s);
    EXPECT_EQ(configuration.Rows(u"SELECT 情報種類, db, プロバイダ名, データソース名 FROM データベース定義"_s),
              (QList<QStringList>{
                  {u"GNR"_s, u"A"_s, u"Microsoft.ACE.OLEDB.12.0"_s, folder.filePath(u"suite/data/gnrdb.accdb"_s)}}));
    EXPECT_EQ(configuration.Rows(
                  u"SELECT 動作環境定義ID, 運用事業所コード, インストール区分, 起動担当者コード FROM 動作環境定義"_s),
              (QList<QStringList>{{u"001"_s, u"000"_s, u"0"_s, u"00001"_s}}));
    EXPECT_EQ(configuration.Value(u"SELECT 処理分類 FROM 販路推進データ管理 WHERE プログラムID = '要員名簿照会'"_s),
              u"1"_s);
}

TEST_F(InstallerTest, OlderKindHasItsSuffixAndProvider) {
    request.kind = FileKind::Mdb;
    request.installKind = 1;
    const SampleFile configuration(Make() + u"/conf/usrcnfg.mdb"_s);
    EXPECT_EQ(Entries(u"suite/report"_s), (QStringList{u"repdb.mdb"_s, u"repfrmdb.mdb"_s}));
    EXPECT_EQ(configuration.Rows(u"SELECT プロバイダ名, データソース名 FROM データベース定義"_s),
              (QList<QStringList>{{u"Microsoft.Jet.OLEDB.4.0"_s, folder.filePath(u"suite/data/gnrdb.mdb"_s)}}));
    EXPECT_EQ(configuration.Value(u"SELECT インストール区分 FROM 動作環境定義"_s), u"1"_s);
}

TEST_F(InstallerTest, WorkTablesAreEmptyAndNoFileIsInWalMode) {
    const QString root = Make();
    const SampleFile report(root + u"/report/repdb.accdb"_s);
    for (const QString& piece : {u""_s, u"封筒"_s, u"はがき"_s, u"宛名ラベル"_s})
        EXPECT_EQ(report.Value(u"SELECT count(*) FROM 要員名簿照会"_s + piece), u"0"_s);
    for (const QString& file : {u"/report/repdb.accdb"_s, u"/data/gnrdb.accdb"_s, u"/conf/usrcnfg.accdb"_s})
        EXPECT_EQ(SampleFile(root + file).Value(u"PRAGMA journal_mode"_s), u"delete"_s);
}

TEST_F(InstallerTest, SameSeedGivesTheSameRowsButForTheSealedPins) {
    request.staff = 100;
    const QString first = Make();
    request.folder = folder.filePath(u"other"_s);
    const QString second = Make();
    for (const TableDefinition& table : SuiteTables()) {
        if (table.store != DatabaseKind::General) continue;
        QStringList columns;
        for (const ColumnDefinition& column : table.columns)
            if (!column.name.endsWith(u"暗証番号"_s)) columns << column.name;
        const QString sql = u"SELECT %1 FROM %2 ORDER BY rowid"_s.arg(columns.join(u','), table.name);
        EXPECT_EQ(SampleFile(first + u"/data/gnrdb.accdb"_s).Rows(sql),
                  SampleFile(second + u"/data/gnrdb.accdb"_s).Rows(sql))
            << table.name.toStdString();
    }
}

TEST_F(InstallerTest, EachInstallationHasAKeyOfItsOwnWhateverTheSeed) {
    const QByteArray first = Bytes(Make() + u"/conf/pin.key"_s);
    request.folder = folder.filePath(u"other"_s);
    EXPECT_EQ(first.size(), 32);
    EXPECT_NE(first, Bytes(Make() + u"/conf/pin.key"_s));
}

TEST_F(InstallerTest, ACompanyThatAsksForPinsHasNoSignedInUserAtItsFirstStart) {
    request.askPins = true;
    const QString root = Make();
    const SampleFile general(root + u"/data/gnrdb.accdb"_s);
    EXPECT_EQ(general.Rows(u"SELECT 暗証番号有無 FROM Mユーザ UNION SELECT 暗証番号有無 FROM M事業所"_s),
              (QList<QStringList>{{u"1"_s}}));
    EXPECT_EQ(SampleFile(root + u"/conf/usrcnfg.accdb"_s).Value(u"SELECT 起動担当者コード FROM 動作環境定義"_s), u""_s);
}

TEST_F(InstallerTest, ItsFirstPeopleDifferInTheirRights) {
    request.askPins = true;
    request.staff = 5;
    const SampleFile general(Make() + u"/data/gnrdb.accdb"_s);
    QString classes;
    for (int i = 0; i < 10; ++i) classes += u"||処理分類%1操作許可"_s.arg(i);
    EXPECT_EQ(
        general.Rows(u"SELECT 事業所コード, 在籍区分%1, 操作許可||入力許可||修正許可||削除許可||印刷許可||"
                     u"プレビュ許可||テキスト出力許可||イメージ出力許可 FROM M担当者 ORDER BY コード LIMIT 4"_s.arg(
                         u',' + classes.mid(2))),
        (QList<QStringList>{{u"000"_s, u"0"_s, u"0000000000"_s, u"00000000"_s},
                            {u"000"_s, u"0"_s, u"0000000000"_s, u"00001000"_s},
                            {u"000"_s, u"0"_s, u"1110111111"_s, u"00000000"_s},
                            {u"001"_s, u"0"_s, u"0000000000"_s, u"00000000"_s}}));
}

TEST_F(InstallerTest, CopiesTheProgramsThatAreBuiltAndSkipsOthers) {
    const QStringList programs = {u"要員台帳更新"_s, u"要員名簿照会"_s};
    for (const QString& program : programs) {
        Write(u"built/"_s + program, "program");
        QFile::setPermissions(folder.filePath(u"built/"_s + program), QFile::ReadOwner | QFile::WriteOwner |
                                                                          QFile::ExeOwner | QFile::ReadOther |
                                                                          QFile::ExeOther);
    }
    Write(u"built/cmake.log"_s, "no program");
    request.programFolder = folder.filePath(u"built"_s);
    Make();
    EXPECT_EQ(Entries(u"suite/prgbin"_s), QStringList{u"空白.jpg"_s} + programs);
    for (const QString& program : programs)
        EXPECT_TRUE(QFileInfo(folder.filePath(u"suite/prgbin/"_s + program)).isExecutable());
}

TEST_F(InstallerTest, EverybodyOfTheGroupMayWriteWhatTheProgramsWrite) {
    Make();
    // SQLite creates the journal next to the file, so the folder must be writable, too.
    for (const QString& place :
         {u"data"_s, u"data/gnrdb.accdb"_s, u"conf"_s, u"conf/usrcnfg.accdb"_s, u"report"_s, u"report/repdb.accdb"_s})
        EXPECT_TRUE(QFileInfo(folder.filePath(u"suite/"_s + place)).permission(QFile::WriteGroup))
            << place.toStdString();
}

TEST_F(InstallerTest, RefusesAFolderWithAnInstallation) {
    const QString root = Make();
    const QByteArray before = Bytes(root + u"/data/gnrdb.accdb"_s);
    request.staff = 9;
    EXPECT_EQ(UsageError(), root + u" には既にインストールがあります。作り直すときは --replace を付けてください。"_s);
    EXPECT_EQ(Bytes(root + u"/data/gnrdb.accdb"_s), before);
}

TEST_F(InstallerTest, ReplaceRecreatesItAndLeavesNothingBeside) {
    Make();
    Write(u"suite/users/old/conf/usrcnfg.accdb"_s, "gone afterwards");
    request.staff = 9;
    request.replace = true;
    const SampleFile general(Make() + u"/data/gnrdb.accdb"_s);
    EXPECT_EQ(general.Value(u"SELECT count(*) FROM M担当者"_s), u"9"_s);
    EXPECT_EQ(Entries(u"."_s), QStringList{u"suite"_s});
    EXPECT_EQ(Entries(u"suite/users"_s), QStringList{});
}

TEST_F(InstallerTest, ReplaceOfALinkKeepsTheLink) {
    const QString root = Make();
    ASSERT_TRUE(QFile::link(root, folder.filePath(u"link"_s)));
    request.folder = folder.filePath(u"link"_s);
    request.replace = true;
    EXPECT_EQ(Make(), root);
    EXPECT_TRUE(QFileInfo(folder.filePath(u"link"_s)).isSymLink());
}

TEST_F(InstallerTest, EmptyFolderIsTakenAndAForeignOneNever) {
    ASSERT_TRUE(QDir().mkdir(request.folder));
    EXPECT_EQ(UsageError(), QString());
    request.folder = folder.filePath(u"letters"_s);
    Write(u"letters/private.txt"_s, "mine");
    for (const bool replace : {false, true}) {
        request.replace = replace;
        EXPECT_EQ(UsageError(), request.folder + u" は空のフォルダではなく、インストールでもありません。"_s);
    }
    EXPECT_EQ(Entries(u"letters"_s), QStringList{u"private.txt"_s});
}

TEST_F(InstallerTest, RefusesAFileAndPathsThatTheProgramsCouldNotRead) {
    Write(u"file"_s, "");
    request.folder = folder.filePath(u"file"_s);
    EXPECT_EQ(UsageError(), request.folder + u" はフォルダではありません。"_s);
    request.folder = folder.filePath(u"PrgBin2/suite"_s);
    EXPECT_EQ(UsageError(), request.folder + u" は使えません。パスに prgbin または prgsrc を含めないでください。"_s);
    request.folder = folder.filePath(u"a;b"_s);
    EXPECT_EQ(UsageError(), request.folder + u" は使えません。パスに「;」や「\"」を含めないでください。"_s);
    EXPECT_EQ(Entries(u"."_s), QStringList{u"file"_s});
}

TEST_F(InstallerTest, FailureLeavesNoHalfInstallation) {
    Write(u"file"_s, "");
    request.folder = folder.filePath(u"file/suite"_s);
    EXPECT_THROW(Make(), platform::RuntimeError);
    // The target name is too long, so that the final rename fails.
    request.folder = folder.filePath(QString(300, u'x'));
    EXPECT_THROW(Make(), platform::RuntimeError);
    EXPECT_EQ(Entries(u"."_s), QStringList{u"file"_s});
}

namespace {
/// The document without its RTF words.
QString ManualText() {
    QString text;
    const QString document = QString::fromLatin1(setup::ManualDocument());
    static const QRegularExpression part(u"\\\\u(-?\\d+)\\?|\\\\[a-z]+-?\\d* ?|([^\\\\{}\n])"_s);
    for (const QRegularExpressionMatch& match : part.globalMatch(document))
        text +=
            match.hasCaptured(1) ? QString(QChar(static_cast<char16_t>(match.captured(1).toInt()))) : match.captured(2);
    return text;
}
}  // namespace

TEST(Manual, DescribesKeysInputMethodColoursMenusPreviewAndFailedPrints) {
    const QString text = ManualText();
    for (const QString& words : {u"Shift＋Tab"_s,
                                 u"Y と N"_s,
                                 u"fcitx5"_s,
                                 u"変換中の Enter"_s,
                                 u"入力できない文字を除きました。"_s,
                                 u"青緑は開いただけ、緑は保存"_s,
                                 u"薄い赤の行"_s,
                                 u"すべて印を付ける"_s,
                                 u"ここから下を外す"_s,
                                 u"行をｺﾋﾟｰ"_s,
                                 u"該当する要員はいません。"_s,
                                 u"Ctrl＋P で印刷、Ctrl＋S で PDF"_s,
                                 u"印刷情報が有りません"_s,
                                 u"通常使うプリンターが決められていません。"_s,
                                 u"は印刷を受け付けていません。"_s,
                                 u"の用紙がありません。"_s,
                                 u"帳票ホストに接続できません。"_s,
                                 u"帳票が使用できません。"_s,
                                 u"印刷サービスに接続できません。"_s,
                                 u"終わってから動くこともありません。"_s})
        EXPECT_TRUE(text.contains(words)) << words.toStdString();
}

TEST(Manual, IsPlainRtfForTheOldSuffix) {
    const QByteArray document = setup::ManualDocument();
    EXPECT_TRUE(document.startsWith("{\\rtf1\\ansi\\ansicpg932"));
    EXPECT_TRUE(document.endsWith("}\n"));
    EXPECT_EQ(document.count('{'), document.count('}'));
    for (const char byte : document) ASSERT_LT(static_cast<unsigned char>(byte), 0x80);
    EXPECT_TRUE(document.contains("\\u-30335?\\u21729?"));                    // 要員
    EXPECT_TRUE(document.contains("\\u20840?\\u12390?\\u-28552?\\u25246?"));  // 全て選択
}
