#include "data/EraDates.h"

#include "data/DataFixture.h"

using namespace Qt::StringLiterals;

namespace {
class EraDates : public WithConnections {
  protected:
    EraDates() {
        AddEra(u"18680125"_s, u"明治"_s);
        AddEra(u"19120730"_s, u"大正"_s);
        AddEra(u"19261225"_s, u"昭和"_s);
        AddEra(u"19890108"_s, u"平成"_s);
        AddEra(u"20190501"_s, u"令和"_s);
    }
    void AddEra(const QString& start, const QString& name) {
        installation.General().Execute(u"INSERT INTO K年号区分 VALUES ('"_s + start + u"', '"_s + name + u"')"_s);
    }
};

struct Case {
    QString date, longForm, shortForm;
};
void Check(const QList<Case>& cases) {
    const EraCalendar calendar = EraCalendar::Read();
    for (const Case& test : cases) {
        EXPECT_EQ(EraDateLong(test.date), test.longForm) << test.date.toStdString();
        EXPECT_EQ(EraDateShort(test.date), test.shortForm) << test.date.toStdString();
        EXPECT_TRUE(calendar.Covers(test.date.toUtf8())) << test.date.toStdString();
        EXPECT_EQ(calendar.Long(test.date), test.longForm) << test.date.toStdString();
        EXPECT_EQ(calendar.Short(test.date), test.shortForm) << test.date.toStdString();
    }
}
}  // namespace

TEST_F(EraDates, DatesAreCountedByTheCalendarYearsOfTheirEra) {
    Check({{u"19650403"_s, u"昭和40年04月03日"_s, u"40/04/03"_s},
           {u"19890107"_s, u"昭和64年01月07日"_s, u"64/01/07"_s},
           {u"19890108"_s, u"平成01年01月08日"_s, u"01/01/08"_s},
           {u"19270101"_s, u"昭和02年01月01日"_s, u"02/01/01"_s},
           {u"20190430"_s, u"平成31年04月30日"_s, u"31/04/30"_s},
           {u"20190501"_s, u"令和01年05月01日"_s, u"01/05/01"_s},
           {u"20200101"_s, u"令和02年01月01日"_s, u"02/01/01"_s}});
}

TEST_F(EraDates, AnEraYearOfAHundredPrintsAllItsDigits) {
    Check({{u"21180101"_s, u"令和100年01月01日"_s, u"100/01/01"_s}});
}

TEST_F(EraDates, BeforeTheFirstEraWithoutACatchAllRowThereIsNothing) {
    Check({{u"18000101"_s, QString(), QString()}, {u""_s, QString(), QString()}});
    EXPECT_TRUE(History().isEmpty());
}

TEST_F(EraDates, BeforeTheFirstEraTheCatchAllRowGivesTheWesternForm) {
    AddEra(u""_s, u"西暦"_s);
    Check({{u"18650403"_s, u"1865年04月03日"_s, u"65/04/03"_s}, {u"19650403"_s, u"昭和40年04月03日"_s, u"40/04/03"_s}});
}

TEST_F(EraDates, AnEmptyDateUnderTheCatchAllRowGivesBareWords) {
    AddEra(u""_s, u"西暦"_s);
    Check({{u""_s, u"年月日"_s, u"//"_s}});
}

TEST_F(EraDates, ALongNameOfAnEraIsKeptWhole) {
    AddEra(u"20500101"_s, u"新元号名"_s);
    Check({{u"20500102"_s, u"新元号名01年01月02日"_s, u"01/01/02"_s}});
}

TEST_F(EraDates, PartsOfADateAreCutByPositionAndNotTested) {
    Check({{u"1965"_s, u"昭和40年月日"_s, u"40//"_s}, {u"19659999"_s, u"昭和40年99月99日"_s, u"40/99/99"_s}});
}

TEST_F(EraDates, ANewEraIsANewRowAndSeenAtOnce) {
    EXPECT_EQ(EraDateLong(u"20300102"_s), u"令和12年01月02日"_s);
    AddEra(u"20300101"_s, u"新元"_s);
    EXPECT_EQ(EraDateLong(u"20300102"_s), u"新元01年01月02日"_s);
}

TEST_F(EraDates, AnEmptyTableBlanksEveryDate) {
    installation.General().Execute(u"DELETE FROM K年号区分"_s);
    Check({{u"19650403"_s, QString(), QString()}});
    EXPECT_TRUE(History().isEmpty());
}

TEST_F(EraDates, AFailedReadIsEmptyAndLeavesItsStatementInTheHistory) {
    installation.General().Execute(u"DROP TABLE K年号区分"_s);
    EXPECT_EQ(EraDateLong(u"19650403"_s), QString());
    EXPECT_EQ(EraDateShort(u"19650403"_s), QString());
    EXPECT_EQ(History(), QStringList(2,
                                     u"エラー no such table: K年号区分SELECT TOP 1 * FROM K年号区分"
                                     u" WHERE 開始日付 <= ''19650403'' ORDER BY 開始日付 DESC"_s));
}

TEST_F(EraDates, TheCalendarLeavesTextsThatAreNoDigitsToTheEngine) {
    EXPECT_TRUE(EraCalendar::Read().Covers("20190501"));
    EXPECT_FALSE(EraCalendar::Read().Covers("2019050a"));
    EXPECT_FALSE(EraCalendar::Read().Covers("２０１９０５０１"));
    AddEra(u"2050010x"_s, u"謎"_s);
    EXPECT_FALSE(EraCalendar::Read().Covers("20190501"));
    EXPECT_TRUE(History().isEmpty());
}

TEST_F(EraDates, AnEraWithoutAStartIsNoEraOfTheCalendar) {
    installation.General().Execute(u"INSERT INTO K年号区分 VALUES (NULL, '無')"_s);
    Check({{u"19650403"_s, u"昭和40年04月03日"_s, u"40/04/03"_s}});
}

TEST_F(EraDates, ACalendarThatCannotBeReadCoversNothingAndLeavesNoHistory) {
    EXPECT_FALSE(EraCalendar().Covers("20190501"));
    installation.General().Execute(u"DROP TABLE K年号区分"_s);
    EXPECT_FALSE(EraCalendar::Read().Covers("20190501"));
    EXPECT_TRUE(History().isEmpty());
}
