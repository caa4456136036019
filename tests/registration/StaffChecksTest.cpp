#include "registration/StaffChecks.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

size_t ItemNamed(const QString& column) {
    for (size_t i = 0; i < kStaffItemCount; ++i)
        if (kStaffItems[i].column == column) return i;
    ADD_FAILURE() << "no item " << column.toStdString();
    return 0;
}

StaffMasters SmallMasters() {
    StaffMasters masters;
    for (const auto& column : {u"性別区分"_s, u"在籍区分"_s, u"社員区分"_s})
        masters[ItemNamed(column)] = {{u"0"_s, u"名0"_s}, {u"1"_s, u"名1"_s}};
    for (const auto& column : {u"事業所コード"_s, u"部門コード"_s, u"セクションコード"_s})
        masters[ItemNamed(column)] = {{u"010"_s, u"名010"_s}};
    masters[ItemNamed(u"役職コード"_s)] = {{u"10"_s, u"名10"_s}};
    return masters;
}

/// The message for changing the item from "前" to `value`; empty if it is valid.
QString MessageFor(const QString& column, const QString& value) {
    StaffValues before, entered;
    before.fill(u"前"_s);
    entered = before;
    const size_t item = ItemNamed(column);
    entered[item] = value;
    const auto objection = FindValidationError(entered, before, SmallMasters());
    if (!objection) return {};
    EXPECT_EQ(objection->item, item);
    return objection->message;
}

struct Case {
    QString column, value, message;
};

}  // namespace

TEST(StaffChecks, ADateIsEightDigitsThatNameADayOfTheCalendar) {
    for (const auto& day : {u"20240229"_s, u"19000101"_s, u"20261231"_s, u"18680125"_s})
        EXPECT_TRUE(IsDate(day)) << day.toStdString();
    for (const auto& text :
         {u"20230229"_s, u"19000229"_s, u"20260431"_s, u"20261301"_s, u"20260001"_s, u"20260100"_s, u"00000101"_s,
          u"2026010"_s, u"202601011"_s, u"2026 101"_s, u"２０２６０１０１"_s, QString()})
        EXPECT_FALSE(IsDate(text)) << text.toStdString();
}

TEST(StaffChecks, EachTextFitsItsColumnInBytesAndIsRefusedOneByteLater) {
    const QList<Case> widths = {
        {u"氏名"_s, QString(10, u'字'), u"氏名は全角10文字(半角20文字)以内で入力してください。"_s},
        {u"カナ"_s, QString(20, u'ｶ'), u"カナは半角20文字以内で入力してください。"_s},
        {u"郵便番号"_s, QString(8, u'1'), u"郵便番号は半角8文字以内で入力してください。"_s},
        {u"住所A"_s, QString(20, u'字'), u"住所Aは全角20文字(半角40文字)以内で入力してください。"_s},
        {u"住所B"_s, QString(20, u'字'), u"住所Bは全角20文字(半角40文字)以内で入力してください。"_s},
        {u"住所C"_s, QString(20, u'字'), u"住所Cは全角20文字(半角40文字)以内で入力してください。"_s},
        {u"電話"_s, QString(16, u'1'), u"電話は半角16文字以内で入力してください。"_s},
        {u"携帯電話"_s, QString(16, u'1'), u"携帯電話は半角16文字以内で入力してください。"_s},
        {u"EMAIL"_s, QString(40, u'a'), u"EMAILは半角40文字以内で入力してください。"_s},
        {u"担当者メモ"_s, QString(40, u'字'), u"メモは全角40文字(半角80文字)以内で入力してください。"_s},
    };
    for (const Case& c : widths) {
        EXPECT_EQ(MessageFor(c.column, c.value), QString()) << c.column.toStdString();
        EXPECT_EQ(MessageFor(c.column, c.value + u'a'), c.message);
    }
}

TEST(StaffChecks, ACodeMustStandInItsMasterCharacterByCharacter) {
    const QList<Case> codes = {
        {u"性別区分"_s, u"2"_s, u"性別 2 は登録されていません。"_s},
        {u"事業所コード"_s, u"099"_s, u"事業所 099 は登録されていません。"_s},
        {u"部門コード"_s, u"10"_s, u"部門 10 は登録されていません。"_s},
        {u"セクションコード"_s, u"０１０"_s, u"所属 ０１０ は登録されていません。"_s},
        {u"役職コード"_s, u"010"_s, u"役職 010 は登録されていません。"_s},
        {u"在籍区分"_s, u"9"_s, u"在籍区分 9 は登録されていません。"_s},
        {u"社員区分"_s, u"9"_s, u"社員区分 9 は登録されていません。"_s},
    };
    for (const Case& c : codes) EXPECT_EQ(MessageFor(c.column, c.value), c.message);
    EXPECT_EQ(MessageFor(u"部門コード"_s, u"010"_s), QString());
    EXPECT_EQ(MessageFor(u"役職コード"_s, u"10"_s), QString());
    EXPECT_EQ(MessageFor(u"社員区分"_s, u"1"_s), QString());
}

TEST(StaffChecks, ADateThatDoesNotExistIsNamed) {
    EXPECT_EQ(MessageFor(u"生年月日"_s, u"20230229"_s), u"生年月日 20230229 は正しい日付ではありません。"_s);
    EXPECT_EQ(MessageFor(u"入社日付"_s, u"2023"_s), u"入社日付 2023 は正しい日付ではありません。"_s);
    EXPECT_EQ(MessageFor(u"退社日付"_s, u"20230001"_s), u"退社日付 20230001 は正しい日付ではありません。"_s);
    EXPECT_EQ(MessageFor(u"退社日付"_s, u"20240229"_s), QString());
}

TEST(StaffChecks, NameAndClassesCannotBeEmptiedAndEverythingElseCan) {
    const QStringList required = {u"氏名"_s, u"性別区分"_s, u"在籍区分"_s, u"社員区分"_s};
    for (const StaffItem& item : kStaffItems) {
        const QString column = item.column.toString();
        const QString message = required.contains(column) ? u"%1を入力してください。"_s.arg(item.caption) : QString();
        EXPECT_EQ(MessageFor(column, QString()), message);
    }
}

TEST(StaffChecks, ACharacterWithoutAFormInTheCodePageIsNamed) {
    EXPECT_EQ(MessageFor(u"氏名"_s, u"森　鷗外"_s), u"氏名に使用できない文字「鷗」があります。"_s);
    EXPECT_EQ(MessageFor(u"氏名"_s, u"𠮷田"_s), u"氏名に使用できない文字「𠮷」があります。"_s);
    EXPECT_EQ(MessageFor(u"EMAIL"_s, u"é@example.jp"_s), u"EMAILに使用できない文字「é」があります。"_s);
    EXPECT_EQ(MessageFor(u"氏名"_s, u"髙﨑　德"_s), QString());
}

TEST(StaffChecks, WhatTheClerkHasNotTouchedIsNotHeldAgainstHim) {
    StaffValues before;
    before.fill(u"20230229無効な値"_s);
    before[ItemNamed(u"氏名"_s)].clear();
    EXPECT_FALSE(FindValidationError(before, before, SmallMasters()));
    StaffValues entered = before;
    entered[ItemNamed(u"電話"_s)] = u"03-5555-0100"_s;
    EXPECT_FALSE(FindValidationError(entered, before, SmallMasters()));
}

TEST(StaffChecks, TheFirstObjectionInTheOrderOfTheFormCounts) {
    StaffValues before, entered;
    entered.fill(u"無効な値です、どの項目にも"_s);
    const auto objection = FindValidationError(entered, before, SmallMasters());
    ASSERT_TRUE(objection);
    EXPECT_EQ(objection->item, ItemNamed(u"氏名"_s));
}
