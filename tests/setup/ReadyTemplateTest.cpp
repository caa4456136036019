#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "report-host/template/TemplateFile.h"
#include "report-host/template/TemplateParser.h"
#include "setup/RunTool.h"
#include "support/FileBytes.h"
#include "support/SampleInstallation.h"

using namespace Qt::StringLiterals;

namespace {

const QString kEnvelope = u"要員名簿照会封筒"_s, kCard = u"要員名簿照会はがき"_s, kLabels = u"要員名簿照会宛名ラベル"_s;

QString ReadyText(const QString& name) {
    for (const report::ReadyTemplate& ready : report::ReadyTemplates())
        if (ready.name == name) return ready.Text();
    return {};
}

class ReadyTemplateTest : public testing::Test {
  protected:
    ToolOutput Use(const QStringList& more = {}) {
        return RunTool(QStringList{u"forms"_s, u"use"_s, installation.Root()} + more +
                       QStringList{u"--folder"_s, folder.path()});
    }
    QString Stored(const QString& report) {
        return installation.Forms().Value(u"SELECT 定義 FROM 帳票 WHERE 名称 = "_s + SqlLiteral(report));
    }
    void Store(const QString& report, const QString& text) {
        installation.Forms().Execute(u"UPDATE 帳票 SET 定義 = "_s + SqlLiteral(text) + u" WHERE 名称 = "_s +
                                     SqlLiteral(report));
    }

    SampleInstallation installation{{.staff = 1}};
    QTemporaryDir folder;
};

}  // namespace

TEST_F(ReadyTemplateTest, EveryOneReplacesItsReportAndPassesTheCheck) {
    ASSERT_EQ(report::ReadyTemplates().size(), 9);
    for (const report::ReadyTemplate& ready : report::ReadyTemplates()) {
        const ToolOutput output = Use({ready.name});
        EXPECT_EQ(output.out, u"帳票「%1」を「%2」にしました。\n"_s.arg(ready.report, ready.name));
        EXPECT_EQ(output.status, 0) << output.err.toStdString();
        EXPECT_EQ(Stored(ready.report), ready.Text());
        EXPECT_EQ(RunTool({u"forms"_s, u"check"_s, installation.Root(), ready.report}).out,
                  ready.report + u": 誤りはありません。\n"_s);
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList()) << "no template was edited";
}

TEST_F(ReadyTemplateTest, WithoutANameAllAreListedWithThoseInUse) {
    Use({u"封筒長形4号"_s});
    Store(kCard, Stored(kCard) + u"# 直した\n"_s);
    EXPECT_EQ(Use().out,
              u"封筒長形3号: 要員名簿照会封筒\n"
              u"封筒長形4号: 要員名簿照会封筒（使用中）\n"
              u"封筒角形2号: 要員名簿照会封筒\n"
              u"はがき縦: 要員名簿照会はがき\n"
              u"はがき横: 要員名簿照会はがき\n"
              u"宛名ラベル86.4x42.3: 要員名簿照会宛名ラベル（使用中）\n"
              u"宛名ラベル83.8x42.3: 要員名簿照会宛名ラベル\n"
              u"宛名ラベル90.2x42.3: 要員名簿照会宛名ラベル\n"
              u"宛名ラベル84x42: 要員名簿照会宛名ラベル\n"_s);
}

TEST_F(ReadyTemplateTest, OffsetOfThePrinterIsKept) {
    Store(kLabels, Stored(kLabels).replace(u"補正 右=0 下=0"_s, u"補正 右=1.5 下=-2"_s));
    EXPECT_EQ(Use({u"宛名ラベル84x42"_s}).status, 0);
    EXPECT_EQ(Stored(kLabels), ReadyText(u"宛名ラベル84x42"_s).replace(u"右=0 下=0"_s, u"右=1.5 下=-2"_s));
    Store(kEnvelope, Stored(kEnvelope).replace(u"用紙 長形3号\n"_s, u"用紙 長形3号\n補正 右=0.5\n"_s));
    EXPECT_EQ(Use({u"封筒角形2号"_s}).status, 0);
    EXPECT_EQ(Stored(kEnvelope),
              ReadyText(u"封筒角形2号"_s).replace(u"角形2号\n書体"_s, u"角形2号\n補正 右=0.5\n書体"_s));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList()) << "an offset is no edited template";
    EXPECT_TRUE(Use().out.contains(u"封筒角形2号: 要員名簿照会封筒（使用中）\n"_s));
}

TEST_F(ReadyTemplateTest, EditedTemplateIsWrittenToAFileFirstAndNeverOverAnotherFile) {
    const QString edited = Stored(kCard) + u"# 直した\n"_s, path = folder.filePath(kCard + u".txt"_s);
    Store(kCard, edited);
    const ToolOutput output = Use({u"はがき横"_s});
    EXPECT_EQ(
        output.out,
        u"今までの定義を %1 に書き出しました。\n帳票「要員名簿照会はがき」を「はがき横」にしました。\n"_s.arg(path));
    EXPECT_EQ(QString::fromUtf8(ReadBytes(path)), edited);
    const QString again = Stored(kCard) + u"# また直した\n"_s;
    Store(kCard, again);
    const ToolOutput refused = Use({u"はがき縦"_s});
    EXPECT_EQ(refused.status, 2);
    EXPECT_TRUE(refused.err.startsWith(u"suite-setup: %1 が既にあるため、今の定義をそこに残せません。\n"_s.arg(path)))
        << refused.err.toStdString();
    EXPECT_EQ(Stored(kCard), again);
    EXPECT_EQ(QString::fromUtf8(ReadBytes(path)), edited);
}

TEST_F(ReadyTemplateTest, UnknownPaperChangesNothing) {
    const ToolOutput output = Use({u"封筒洋形2号"_s});
    EXPECT_EQ(output.status, 2);
    EXPECT_TRUE(output.err.startsWith(u"suite-setup: 用紙「封筒洋形2号」はありません。\n"_s))
        << output.err.toStdString();
    EXPECT_EQ(Stored(kEnvelope), report::StandardTemplate(kEnvelope));
}

struct Sheet {
    const char16_t* name;
    double left, top, pitchX, pitchY;
};
class LabelSheetTest : public testing::TestWithParam<Sheet> {};

TEST_P(LabelSheetTest, HasTwelveLabelsInTheMakersPlaces) {
    const report::TemplateDefinition sheet =
        report::ParseTemplate(ReadyText(QString::fromUtf16(GetParam().name))).definition;
    EXPECT_EQ(sheet.page, QSizeF(210, 297));
    ASSERT_TRUE(sheet.grid);
    EXPECT_EQ(sheet.grid->across, 2);
    EXPECT_EQ(sheet.grid->down, 6);
    EXPECT_EQ(sheet.grid->first, QPointF(GetParam().left, GetParam().top));
    EXPECT_EQ(sheet.grid->pitchX, GetParam().pitchX);
    EXPECT_EQ(sheet.grid->pitchY, GetParam().pitchY);
    EXPECT_EQ(report::RowsPerPage(sheet), 6);
}

INSTANTIATE_TEST_SUITE_P(Makers, LabelSheetTest,
                         testing::Values(Sheet{u"宛名ラベル86.4x42.3", 18.6, 21.2, 86.4, 42.3},
                                         Sheet{u"宛名ラベル83.8x42.3", 20.3, 20, 87.6, 42.3},
                                         Sheet{u"宛名ラベル90.2x42.3", 16.5, 20, 92.7, 42.3},
                                         Sheet{u"宛名ラベル84x42", 20, 22.5, 86, 42}));
