#include <gtest/gtest.h>

#include "support/RealProgram.h"

using namespace Qt::StringLiterals;

namespace {

// Rows of the plain LEFT JOINs; the class tables are inner joins.
const QString kCount =
    u"SELECT COUNT(*) FROM M担当者 s LEFT JOIN M事業所 j ON j.コード = s.事業所コード "
    "LEFT JOIN M部門 b ON b.コード = s.部門コード LEFT JOIN Mセクション c ON c.コード = s.セクションコード "
    "LEFT JOIN M役職 y ON y.コード = s.役職コード "
    "WHERE EXISTS (SELECT 1 FROM K性別区分 WHERE 区分 = s.性別区分) "
    "AND EXISTS (SELECT 1 FROM K在籍区分 WHERE 区分 = s.在籍区分) "
    "AND EXISTS (SELECT 1 FROM K社員区分 WHERE 区分 = s.社員区分) AND s.在籍区分 = '0'"_s;

const QString kOpen = u"000999000999009900000"_s + u"99999"_s;  // ranges after the office

QString Text(const QString& text) { return text.leftJustified(30); }

}  // namespace

TEST(Program, RowsOfTenStartCommandsEqualACountByHand) {
    const SampleInstallation installation;
    struct Case {
        QStringList arguments;
        QString condition;
    };
    const QList<Case> cases = {
        {{}, QString()},
        {{u"000"_s + kOpen}, QString()},
        {{u"001"_s + kOpen}, u" AND s.事業所コード = '001'"_s},
        {{u"001"_s}, u" AND 0"_s},
        {{u"000010020000999009900000"_s + u"99999"_s}, u" AND s.部門コード >= '010' AND s.部門コード <= '020'"_s},
        {{u"000000999000100009900000"_s + u"99999"_s},
         u" AND s.セクションコード >= '000' AND s.セクションコード <= '100'"_s},
        {{u"000000999000999103000000"_s + u"99999"_s}, u" AND s.役職コード >= '10' AND s.役職コード <= '30'"_s},
        {{u"000000999000999009900100"_s + u"00200"_s}, u" AND s.コード >= '00100' AND s.コード <= '00200'"_s},
        {{u"000"_s + kOpen + Text(QString()) + Text(u"ｱ"_s)}, u" AND s.カナ LIKE '%ｱ%'"_s},
        {{u"000"_s + kOpen + Text(QString()) + Text(QString()) + Text(QString()) + Text(QString()) + Text(u"東京都"_s) +
          u"4"_s},
         u" AND (s.住所A LIKE '%東京都%' OR s.住所B LIKE '%東京都%' OR s.住所C LIKE '%東京都%')"_s},
    };
    for (const Case& c : cases) {
        const ProgramRun run = RunProgram(installation, c.arguments);
        const QString count = installation.General().Rows(kCount + c.condition).first().first();
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(run.output, u"rows="_s + count + u'\n') << c.arguments.join(u' ').toStdString();
    }
}

TEST(Program, OneRunLeavesStartStatementAndEndNumberedWithoutAGap) {
    const SampleInstallation installation;
    RunProgram(installation, {u"000"_s + kOpen, u"x'y"_s});
    const QList<QStringList> rows =
        installation.Configuration().Rows(u"SELECT proccounter, 摘要 FROM プログラム稼動履歴 ORDER BY rowid"_s);
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows[0], QStringList({u"000000000001"_s, u"開始 000"_s + kOpen + u" x'y"_s}));
    EXPECT_EQ(rows[1][0], u"000000000002"_s);
    EXPECT_TRUE(rows[1][1].startsWith(u"出力終了 SELECT M担当者.*"_s)) << rows[1][1].toStdString();
    EXPECT_TRUE(rows[1][1].contains(u"WHERE M担当者.コード <> ''''"_s)) << rows[1][1].toStdString();
    EXPECT_EQ(rows[2], QStringList({u"000000000003"_s, u"終了"_s}));
}
