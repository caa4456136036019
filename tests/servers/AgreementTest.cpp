// A desktop file and a server return the same rows for the same data, in the same order except for equal keys.

#include <algorithm>

#include "data/Connections.h"
#include "database/collation/TextFolding.h"
#include "inquiry/StaffQuery.h"
#include "servers/ServerFixture.h"

using namespace Qt::StringLiterals;

namespace {

/// Names, kana and addresses that engines compare differently.
const QStringList kOddTexts = {u"ﾔﾏﾀﾞ ﾀﾛｳ"_s,
                               u"やまだ　たろう"_s,
                               u"ヤマダ タロウ"_s,
                               u"ﾔﾏﾀ ﾀﾛｳ"_s,
                               u"ばあば"_s,
                               u"バーバ"_s,
                               u"ﾊﾟｰﾊﾟ"_s,
                               u"はば"_s,
                               u"っつ"_s,
                               u"ゔぃ"_s,
                               u"ｳﾞｨ"_s,
                               u"ＡＢＣ商会"_s,
                               u"abc商会"_s,
                               u"Abd商会"_s,
                               u"𠮷田 一"_s,
                               u"吉田 一"_s,
                               u"髙橋"_s,
                               u"高橋"_s,
                               u"森 鷗外"_s,
                               u"①㈱"_s,
                               u"(株)山"_s,
                               u"100%_[a]"_s,
                               u"it's \\ \"x\""_s,
                               u"ｶﾞ゙ﾞ゛"_s,
                               u"が゛"_s,
                               u""_s,
                               u" 先頭"_s,
                               u"Ω波"_s,
                               u"ω波"_s,
                               u"Привет"_s,
                               u"ПРИВЕТ"_s,
                               u"１２－３"_s,
                               u"12-3"_s,
                               u"ユウコ"_s,
                               u"ユーコ"_s,
                               u"ゆうこ"_s,
                               u"Straße"_s,
                               u"ÄÖ"_s,
                               u"äö"_s,
                               QString()};

class Agreement : public OnServer {
  protected:
    Agreement() : OnServer(40) {
        for (int i = 0; i < kOddTexts.size(); ++i) AddOdd(i);
        file.CursorLocation = database::CursorLocation::Client;
        Globals().GeneralDatabase = {};
        Globals().GeneralDatabase.db = u"A"_s;
        Globals().GeneralDatabase.プロバイダ名 = u"Microsoft.ACE.OLEDB.12.0"_s;
        Globals().GeneralDatabase.データソース名 = installation.General().Path();
        OpenForWriting(file);
        EXPECT_TRUE(OpenGeneral());
    }

    /// Inserts the same row in both, directly and not by the code under test.
    void AddOdd(int number) const {
        const QString code = QString::number(90001 + number);
        const QString text = SqlLiteral(kOddTexts[number]);
        const QString office = number % 5 == 0 ? u"NULL"_s : number % 3 == 0 ? u"''"_s : u"'001'"_s;
        const QString sql =
            u"INSERT INTO M担当者 (コード, 氏名, カナ, 住所A, 住所B, 住所C, 郵便番号, 電話, 事業所コード, 性別区分,"
            u" 在籍区分, 社員区分) VALUES ('%1', %2, %2, %2, '', '', '%3', '03-%1', %4, '0', '0', '0')"_s.arg(
                code, text, QString::number(number % 4), office);
        installation.General().Execute(sql);
        server.Run(sql);
    }

    using Row = QStringList;
    static QList<Row> RowsOf(database::Connection& connection, const QString& sql) {
        database::Recordset rows;
        rows.Open(sql, connection);
        QList<Row> all;
        for (; !rows.AtEOF(); rows.MoveNext()) {
            Row row;
            for (int column = 0; column < rows.FieldCount(); ++column)
                row.append(rows.FieldName(column).toLower() + u'=' + rows.FieldAt(column).TextOr(u"(Null)"_s));
            all.append(row);
        }
        return all;
    }

    /// Asserts equal rows, with equal keys at the same positions. `keys` are columns of the result.
    void ExpectSameRows(const QString& sql, const QStringList& keys) {
        SCOPED_TRACE(sql.toStdString());
        const QList<Row> expected = RowsOf(file, sql);
        const QList<Row> found = RowsOf(Globals().MainConnection, sql);
        ASSERT_EQ(found.size(), expected.size());
        for (qsizetype i = 0; i < found.size(); ++i)
            for (const QString& key : keys)
                EXPECT_TRUE(SameKey(Value(found[i], key), Value(expected[i], key), key)) << i;
        EXPECT_EQ(Sorted(found), Sorted(expected));
    }

    static QString Value(const Row& row, const QString& column) {
        for (const QString& cell : row)
            if (cell.startsWith(column.toLower() + u'=')) return cell.mid(column.size() + 1);
        ADD_FAILURE() << "no column " << column.toStdString();
        return {};
    }
    static bool SameKey(const QString& one, const QString& other, const QString& key) {
        const bool words = key == u"氏名"_s || key == u"カナ"_s;
        return words ? database::CompareTexts(one.toUtf8(), other.toUtf8()) == 0 : one == other;
    }
    static QStringList Sorted(const QList<Row>& rows) {
        QStringList lines;
        for (const Row& row : rows) lines.append(row.join(u'|'));
        std::sort(lines.begin(), lines.end());
        return lines;
    }

    /// The staff query with the current conditions, in all sort orders.
    void ExpectSameInAllOrders() {
        const QList<QStringList> keys = {
            {u"コード"_s},
            {u"事業所コード"_s, u"部門コード"_s, u"セクションコード"_s, u"役職コード"_s, u"コード"_s},
            {u"氏名"_s},
            {u"カナ"_s},
            {u"郵便番号"_s, u"氏名"_s}};
        for (int order = 0; order < keys.size(); ++order) {
            Globals().Conditions.DisplayOrder = order;
            ExpectSameRows(BuildStaffStatement(), keys[order]);
        }
    }

    database::Connection file;
};

}  // namespace

TEST_F(Agreement, EveryOrderOfTheStaffListIsTheSame) {
    ExpectSameInAllOrders();
    Globals().Conditions.EnrolmentKind = 9;
    ExpectSameInAllOrders();
}

TEST_F(Agreement, EveryPieceOfANameFindsTheSamePeople) {
    QStringList pieces = kOddTexts;
    pieces << u"山"_s << u"やまだ"_s << u"%"_s << u"_"_s << u"__"_s << u"[あ-さ]"_s << u"[!あ-さ]"_s << u"[ﾊﾞﾊﾟ]"_s
           << u"ｶﾞ"_s << u"か"_s << u"ﾞ"_s << u"゜"_s << u"a_c"_s << u"山%郎"_s << u"[]"_s << u"[z-a]"_s << u"[!]"_s
           << u"\\"_s << u"^"_s << u"$"_s << u"(株)"_s << u"."_s << u"*"_s << u"ー"_s << u"[[]a]"_s << u"[\\]"_s
           << u"[-a]"_s << u"[^a]"_s << u"ﾀﾛｳ"_s << u"_ﾞ"_s << u"ば_ば"_s << u"[か-ご]゛"_s;
    for (const QString& piece : pieces) {
        if (piece.isNull()) continue;
        QString quoted = piece;
        quoted.replace(u'\'', u"''"_s);
        for (const QString& pattern : {u"%"_s + quoted + u'%', quoted, quoted + u'%', u"%"_s + quoted}) {
            ExpectSameRows(u"SELECT コード FROM M担当者 WHERE 氏名 LIKE '"_s + pattern + u"'"_s, {});
            ExpectSameRows(u"SELECT コード FROM M担当者 WHERE M担当者.カナ NOT LIKE '"_s + pattern + u"'"_s, {});
        }
    }
}

TEST_F(Agreement, EveryConditionOfTheInquiryFindsTheSamePeople) {
    InquiryConditions& conditions = Globals().Conditions;
    const InquiryConditions all = conditions;
    const QList<std::function<void(InquiryConditions&)>> changes = {
        [](InquiryConditions& c) { c.DepartmentFrom = u"010"_s, c.DepartmentTo = u"050"_s; },
        [](InquiryConditions& c) { c.DepartmentTo.clear(); },
        [](InquiryConditions& c) { c.SectionTo = u"500"_s; },
        [](InquiryConditions& c) { c.PositionFrom = u"20"_s; },
        [](InquiryConditions& c) { c.StaffFrom = u"00010"_s, c.StaffTo = u"00020"_s; },
        [](InquiryConditions& c) { c.SearchName = u"O'x"_s; },
        [](InquiryConditions& c) { c.SearchKana = u"ﾔﾏ"_s; },
        [](InquiryConditions& c) { c.SearchAddress = u"東京"_s; },
        [](InquiryConditions& c) { c.SearchZip = u"1"_s; },
        [](InquiryConditions& c) { c.EnrolmentKind = 1; },
        [](InquiryConditions& c) { c.StaffClass = 2; },
    };
    for (const auto& change : changes) {
        conditions = all;
        change(conditions);
        ExpectSameInAllOrders();
    }
    conditions = all;
    Globals().ScopeOfficeCode = u"001"_s;
    ExpectSameInAllOrders();
}

TEST_F(Agreement, EverySelectionOfSeveralFindsTheSamePeople) {
    QStringList codes;
    for (int code = 1; code <= 2'000; ++code) codes.append(u"M担当者.コード = '%1'"_s.arg(code, 5, 10, QChar(u'0')));
    const QStringList selections = {
        u"(M担当者.氏名 LIKE '%山%' OR M担当者.氏名 LIKE '%ﾔﾏﾀﾞ%' OR M担当者.氏名 LIKE '%it''s%')"_s,
        u"(M担当者.カナ LIKE '%ﾔ%' AND M担当者.カナ LIKE '%ﾛ%')"_s,
        u"((M担当者.住所A LIKE '%東京%' OR M担当者.住所A LIKE '%ﾋﾞﾙ%') OR (M担当者.住所B LIKE '%1%')"
        u" OR (M担当者.住所C LIKE '%ビル%'))"_s,
        u"(M担当者.電話 LIKE '%03%' OR M担当者.電話 LIKE '%9000_%')"_s,
        u"(M担当者.郵便番号 LIKE '%1%' AND M担当者.郵便番号 LIKE '%0%')"_s,
        u"(M担当者.部門コード = '010' OR M担当者.部門コード = '020')"_s,
        u'(' + codes.join(u" OR "_s) + u')'};
    Globals().Conditions.EnrolmentKind = 9;
    Globals().Conditions.DisplayOrder = 3;
    const QString statement = BuildStaffStatement();
    for (const QString& selection : selections) {
        const QString sql = QString(statement).replace(u" ORDER BY"_s, u" AND "_s + selection + u" ORDER BY"_s);
        ASSERT_NE(sql, statement);
        EXPECT_FALSE(RowsOf(file, sql).isEmpty()) << selection.left(200).toStdString();
        ExpectSameRows(sql, {u"カナ"_s});
    }
}

TEST_F(Agreement, EveryStaffListGivesTheSameRows) {
    for (const int kind : {kNegativeSearch, kCompositeSearch, kCodeSearch, kKanaSearch, kNameSearch, kDepartmentSearch,
                           kSectionSearch}) {
        QStringList keys = {u"コード"_s};
        if (kind == kNameSearch) keys = {u"氏名"_s};
        if (kind == kKanaSearch) keys.clear();  // the list does not show its sort key
        ExpectSameRows(BuildStaffListQuery(kind, EveryListCondition()), keys);
    }
}

TEST_F(Agreement, EverySmallLookUpGivesTheSameRow) {
    for (const QString& date : {u"19650403"_s, u"19890107"_s, u"19890108"_s, u"20260101"_s, u""_s, u"1"_s, u"abc"_s})
        ExpectSameRows(u"SELECT TOP 1 * FROM K年号区分 WHERE 開始日付 <= '"_s + date + u"' ORDER BY 開始日付 DESC"_s,
                       {u"開始日付"_s});
    for (const QString& table : {u"K在籍区分"_s, u"K社員区分"_s, u"K性別区分"_s, u"K稼動状況区分"_s})
        ExpectSameRows(u"SELECT * FROM "_s + table + u" ORDER BY 区分"_s, {u"区分"_s});
    ExpectSameRows(u"SELECT COUNT(*) AS 事業所件数 FROM M事業所 WHERE コード <> '000'"_s, {});
    ExpectSameRows(u"SELECT 名称 FROM M部門 WHERE コード = '010'"_s, {});
    ExpectSameRows(u"SELECT * FROM T閲覧"_s, {});
}

TEST_F(Agreement, NullsComeFirstAndLastWhereTheOrderDescends) {
    ExpectSameRows(u"SELECT コード, 事業所コード FROM M担当者 ORDER BY 事業所コード, コード"_s,
                   {u"事業所コード"_s, u"コード"_s});
    ExpectSameRows(u"SELECT コード, 事業所コード FROM M担当者 ORDER BY 事業所コード DESC, コード DESC"_s,
                   {u"事業所コード"_s, u"コード"_s});
    ExpectSameRows(u"SELECT TOP 7 カナ, 氏名 FROM M担当者 ORDER BY カナ"_s, {u"カナ"_s});
}

TEST_F(Agreement, LookUpsInsideAScopeAreThoseOfTheServer) {
    const auto look = [](const QString& code) {
        return u"SELECT TOP 1 [T閲覧].[閲覧区分] FROM [T閲覧] WHERE [T閲覧].[閲覧情報] = '要員台帳更新'"
               u" AND [T閲覧].[キー項目] = '"_s +
               code + u"' ORDER BY [T閲覧].[閲覧日付] DESC, [T閲覧].[閲覧時刻] DESC"_s;
    };
    const database::ReadScope scope(Globals().MainConnection);
    for (int i = 0; i < 200; ++i) {
        const QString code = u"%1"_s.arg(i % 45, 5, 10, QChar(u'0'));
        EXPECT_EQ(RowsOf(Globals().MainConnection, look(code)), RowsOf(file, look(code))) << code.toStdString();
    }
    EXPECT_EQ(RowsOf(Globals().MainConnection, look(u"x'y"_s.replace(u"'"_s, u"''"_s))), QList<Row>());
}
