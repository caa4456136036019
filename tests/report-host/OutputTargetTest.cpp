#include "report-host/template/OutputTarget.h"

#include "platform/RuntimeError.h"
#include "report-host/ReportFixture.h"

using namespace Qt::StringLiterals;

namespace {

class OutputTargetTest : public ReportTest {
  protected:
    QList<QStringList> Stored() const {
        return installation.Forms().Rows(u"SELECT 帳票, 種類, 名前 FROM 出力先 ORDER BY 帳票"_s);
    }
};

}  // namespace

TEST_F(OutputTargetTest, TargetOfAReportReplacesTheFormerOne) {
    WriteOutputTarget(TemplateFile(), kList, {OutputTarget::Kind::Printer, u"受付"_s});
    WriteOutputTarget(TemplateFile(), kList, {OutputTarget::Kind::Folder, u"/o'brien"_s});
    EXPECT_EQ(Stored(), (QList<QStringList>{{kList, u"フォルダ"_s, u"/o'brien"_s}}));
    const OutputTarget read = ReadOutputTarget(TemplateFile(), kList);
    EXPECT_EQ(read.kind, OutputTarget::Kind::Folder);
    EXPECT_EQ(read.name, u"/o'brien"_s);
}

TEST_F(OutputTargetTest, FailedWriteKeepsTheFormerTarget) {
    WriteOutputTarget(TemplateFile(), kList, {OutputTarget::Kind::Printer, u"受付"_s});
    installation.Forms().Execute(
        u"CREATE TRIGGER full BEFORE INSERT ON 出力先 BEGIN SELECT RAISE(ABORT, 'disk full'); END"_s);
    EXPECT_THROW(WriteOutputTarget(TemplateFile(), kList, {OutputTarget::Kind::Folder, u"/srv"_s}),
                 platform::RuntimeError);
    EXPECT_EQ(Stored(), (QList<QStringList>{{kList, u"プリンター"_s, u"受付"_s}}));
}
