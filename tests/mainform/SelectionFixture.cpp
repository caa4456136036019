#include "mainform/SelectionFixture.h"

#include "globals/ProgramGlobals.h"

using namespace Qt::StringLiterals;

namespace {

const QString kHead =
    u"SELECT M担当者.*, M事業所.名称 as 事業所名, M部門.名称 as 部門名, Mセクション.名称 as セクション名, M役職.名称 as 役職名, K性別区分.名称 as 性別区分名, K在籍区分.名称 as 在籍区分名, K社員区分.名称 as 社員区分名 FROM K社員区分 INNER JOIN (K在籍区分 INNER JOIN (K性別区分 INNER JOIN (M役職 RIGHT JOIN (Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M事業所 RIGHT JOIN M担当者 ON M事業所.コード = M担当者.事業所コード ) ON M部門.コード = M担当者.部門コード ) ON Mセクション.コード = M担当者.セクションコード) ON M役職.コード = M担当者.役職コード) ON K性別区分.区分 = M担当者.性別区分) ON K在籍区分.区分 = M担当者.在籍区分) ON K社員区分.区分 = M担当者.社員区分  WHERE M担当者.コード <> ''"_s;
const QString kOrder =
    u" ORDER BY M担当者.事業所コード, M担当者.部門コード, M担当者.セクションコード, M担当者.役職コード, M担当者.コード"_s;

}  // namespace

QString SelectionTest::WholeStatement(const QString& suffix) { return kHead + suffix; }

QString SelectionTest::HistoryRow(const QString& suffix) {
    return u"出力終了 "_s + WholeStatement(suffix).replace(u"'"_s, u"''"_s);
}

QString SelectionTest::Statement(const QString& codes, const QString& texts) {
    return WholeStatement(codes + u" AND M担当者.在籍区分 = '0'"_s + texts + kOrder);
}

QStringList SelectionTest::Found() {
    QStringList codes;
    for (int row = 0; row <= Globals().LastRow; ++row) codes << Globals().Rows.Text(StaffText::担当者コード, row);
    codes.sort();
    return codes;
}

QStringList SelectionTest::Staff(const QString& condition) const {
    QStringList codes;
    const QString sql = u"SELECT コード FROM M担当者 WHERE 在籍区分 = '0' AND (%1) ORDER BY コード"_s.arg(condition);
    for (const QStringList& row : installation.General().Rows(sql)) codes << row.first();
    return codes;
}

int SelectionTest::FailuresOfSearch() {
    const auto before = History().filter(u"エラー "_s).size();
    Click(u"btn_集計検索"_s);
    return static_cast<int>(History().filter(u"エラー "_s).size() - before);
}
