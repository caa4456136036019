#include "frame/ValueWindowsFixture.h"

#include "frame/ProgramGlobals.h"

using namespace Qt::StringLiterals;

bool ValueWindowsTest::Given(const ValueWindowDefinition& definition) { return Globals().Flags.*definition.flag; }

QStringList ValueWindowsTest::Found() {
    QStringList codes;
    for (int row = 0; row <= Globals().LastRow; ++row) codes << Globals().Rows.Text(StaffText::担当者コード, row);
    codes.sort();
    return codes;
}

QStringList ValueWindowsTest::Staff(const QString& condition) const {
    QStringList codes;
    const QString sql = u"SELECT コード FROM M担当者 WHERE 在籍区分 = '0' AND (%1) ORDER BY コード"_s.arg(condition);
    for (const QStringList& row : installation.General().Rows(sql)) codes << row.first();
    return codes;
}

int ValueWindowsTest::FailuresOfSearch() {
    const auto before = History().filter(u"エラー "_s).size();
    Click(u"btn_集計検索"_s);
    return static_cast<int>(History().filter(u"エラー "_s).size() - before);
}
