#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "report-host/template/TemplateFile.h"
#include "setup/RunTool.h"
#include "support/SampleInstallation.h"

using namespace Qt::StringLiterals;

namespace {

const QString kList = u"要員名簿照会"_s, kLabels = u"要員名簿照会宛名ラベル"_s;

class TemplateCommandsTest : public testing::Test {
  protected:
    ToolOutput Forms(const QString& action, const QStringList& more = {}) {
        return RunTool(QStringList{u"forms"_s, action, installation.Root()} + more);
    }
    QStringList InFolder(const QStringList& more = {}) { return QStringList{u"--folder"_s, folder.path()} + more; }
    void Write(const QString& form, const QString& text) {
        QFile file(folder.filePath(form + u".txt"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
    }
    QString Stored(const QString& form) {
        return installation.Forms().Value(u"SELECT 定義 FROM 帳票 WHERE 名称 = "_s + SqlLiteral(form));
    }

    SampleInstallation installation{{.staff = 1}};
    QTemporaryDir folder;
};

}  // namespace

TEST_F(TemplateCommandsTest, NewInstallationHasTheFourTemplatesLinkedToItsReportDatabase) {
    EXPECT_EQ(
        installation.Forms().Rows(u"SELECT 名称, 元テーブル, 接続, 属性 FROM リンクテーブル ORDER BY rowid"_s).size(),
        4);
    for (const QString& name : report::StandardTemplateNames()) {
        EXPECT_EQ(Stored(name), report::StandardTemplate(name));
        EXPECT_EQ(installation.Forms().Rows(u"SELECT 元テーブル, 接続, 属性 FROM リンクテーブル WHERE 名称 = "_s +
                                            SqlLiteral(name)),
                  (QList<QStringList>{{name, u";DATABASE="_s + installation.Report().Path(), u"1073741824"_s}}));
    }
}

TEST_F(TemplateCommandsTest, ExportWritesEveryTemplateAndImportTakesThemBack) {
    const ToolOutput out = Forms(u"export"_s, InFolder());
    EXPECT_EQ(out.status, 0) << out.err.toStdString();
    EXPECT_EQ(out.out.count(u'\n'), 4);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 4);
    Write(kLabels, report::StandardTemplate(kLabels).replace(u"右=0"_s, u"右=1.2"_s));
    const ToolOutput in = Forms(u"import"_s, InFolder({kLabels}));
    EXPECT_EQ(in.out, u"帳票「要員名簿照会宛名ラベル」を取り込みました。\n"_s);
    EXPECT_TRUE(Stored(kLabels).contains(u"補正 右=1.2 下=0"_s));
    EXPECT_EQ(Stored(kList), report::StandardTemplate(kList));
}

TEST_F(TemplateCommandsTest, ImportOfATemplateWithAnErrorChangesNothing) {
    Write(kList, u"用紙 A4\n明細 高さ=9\n文字 0,0 9x9 \"[氏明]\"\n"_s);
    Write(kLabels, report::StandardTemplate(kLabels) + u"# 直した\n"_s);
    const ToolOutput output = Forms(u"import"_s, InFolder());
    EXPECT_EQ(output.status, 1);
    EXPECT_EQ(output.err,
              u"要員名簿照会: 3 行目: 表に列「氏明」がありません。\n"
              u"suite-setup: 誤りが 1 件あるため、取り込みませんでした。\n"_s);
    for (const QString& name : {kList, kLabels}) EXPECT_EQ(Stored(name), report::StandardTemplate(name));
}

TEST_F(TemplateCommandsTest, ImportThatFailsHalfwayChangesNothing) {
    for (const QString& name : {kList, kLabels}) Write(name, report::StandardTemplate(name) + u"# 直した\n"_s);
    installation.Forms().Execute(
        u"CREATE TRIGGER 失敗 BEFORE UPDATE ON 帳票 WHEN NEW.名称 = '%1' BEGIN SELECT RAISE(ABORT, 'no'); END"_s.arg(
            kLabels));
    const ToolOutput output = Forms(u"import"_s, InFolder());
    EXPECT_EQ(output.status, 1);
    EXPECT_EQ(output.out, QString());
    for (const QString& name : {kList, kLabels}) EXPECT_EQ(Stored(name), report::StandardTemplate(name));
}

TEST_F(TemplateCommandsTest, CheckNamesLineAndReasonOfEachError) {
    EXPECT_EQ(Forms(u"check"_s, {kList}).out, u"要員名簿照会: 誤りはありません。\n"_s);
    installation.Forms().Execute(
        u"UPDATE 帳票 SET 定義 = '用紙 A4' || char(10) || '明細 高さ=x' || char(10) || '線 1' WHERE 名称 = '要員名簿照会'"_s);
    const ToolOutput output = Forms(u"check"_s);
    EXPECT_EQ(output.status, 1);
    EXPECT_EQ(output.out,
              u"要員名簿照会: 2 行目: 高さ「x」は数ではありません。\n"
              u"要員名簿照会: 3 行目: 線の後ろに 左,上 左,上 を書いてください。\n"
              u"要員名簿照会封筒: 誤りはありません。\n"
              u"要員名簿照会はがき: 誤りはありません。\n"
              u"要員名簿照会宛名ラベル: 誤りはありません。\n"_s);
    EXPECT_EQ(output.err, u"suite-setup: 帳票の定義に誤りが 2 件あります。\n"_s);
}

TEST_F(TemplateCommandsTest, CheckReportsABrokenLink) {
    installation.Forms().Execute(u"UPDATE リンクテーブル SET 接続 = ';DATABASE=/nowhere/repdb.accdb'"_s);
    EXPECT_EQ(
        Forms(u"check"_s, {kList}).out,
        u"要員名簿照会: リンクテーブル「要員名簿照会」を読めません。データベース「/nowhere/repdb.accdb」が見つかりません。\n"_s);
}

TEST_F(TemplateCommandsTest, WrongWordsAreRefused) {
    struct Case {
        QStringList words;
        QString text;
    };
    const QString root = installation.Root();
    for (const Case& c :
         {Case{{u"forms"_s}, u"forms のあとにコマンドの続きを指定してください。"_s},
          Case{{u"forms"_s, u"print"_s, root}, u"コマンド forms print はありません。"_s},
          Case{{u"forms"_s, u"check"_s}, u"インストール先のフォルダを指定してください。"_s},
          Case{{u"forms"_s, u"check"_s, root, u"a"_s, u"b"_s}, u"引数 b が余分です。"_s},
          Case{{u"forms"_s, u"check"_s, root, u"無い"_s}, u"帳票「無い」はありません。"_s},
          Case{{u"forms"_s, u"check"_s, u"/nowhere"_s}, u"/nowhere にインストールがありません。"_s},
          Case{{u"forms"_s, u"export"_s, root, u"--user"_s, u"no-such-user"_s}, u"利用者 no-such-user はいません。"_s},
          Case{{u"forms"_s, u"export"_s, root, u"--user"_s, u"nobody"_s},
               root + u"/users/nobody/report に帳票ファイル repfrmdb がありません。"_s},
          Case{{u"forms"_s, u"import"_s, root, u"--folder"_s, folder.path()}, u"取り込むファイルがありません。"_s},
          Case{{u"forms"_s, u"pdf"_s, root}, u"帳票の名前を指定してください。"_s}}) {
        const ToolOutput output = RunTool(c.words);
        EXPECT_EQ(output.status, 2);
        EXPECT_EQ(output.err.section(u'\n', 0, 0), u"suite-setup: "_s + c.text);
    }
}

TEST_F(TemplateCommandsTest, PdfShowsWhatTheWorkTableHolds) {
    const QStringList more{kLabels, u"--out"_s, folder.filePath(u"a.pdf"_s)};
    EXPECT_EQ(Forms(u"pdf"_s, more).err,
              u"suite-setup: 帳票「要員名簿照会宛名ラベル」に印刷するデータがありません。\n"_s);
    installation.Report().Execute(
        u"INSERT INTO 要員名簿照会宛名ラベル (行番号, A列名称B) VALUES ('000001', '佐藤 様')"_s);
    EXPECT_EQ(Forms(u"pdf"_s, more).out, u"%1（1 頁）\n"_s.arg(folder.filePath(u"a.pdf"_s)));
    QFile pdf(folder.filePath(u"a.pdf"_s));
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    EXPECT_TRUE(pdf.readAll().startsWith("%PDF-"));
}
