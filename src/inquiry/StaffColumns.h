#pragma once

#include <QStringView>
#include <algorithm>
#include <array>

#include "globals/InquiryRecords.h"

// Descriptors of the columns of the staff list. Everything that more than one place must know about a column is here,
// once. Row load, painting, layout and outputs keep only their order, where it differs from the order of StaffText.

/// How a row is loaded into the field.
enum class StaffSource {
    Derived,  ///< computed from other fields
    Column,   ///< as stored
    Pin,      ///< decrypted
    Stamp,    ///< "yyyymmdd hhnnss", formatted
};

/// A column of the list.
struct StaffColumn {
    StaffText field;          ///< of the row store
    QStringView item = {};    ///< of a row position; empty if the column is not shown
    QStringView column = {};  ///< of the statement and of the work tables; empty for a derived field
    StaffSource source = StaffSource::Column;
    /// The field is not written if this column is Null; empty: if its own column is Null.
    QStringView guard = {};
};

/// Indexed by StaffText.
inline constexpr auto kStaffColumns = [] {
    using enum StaffText;
    using enum StaffSource;
    return std::to_array<StaffColumn>({
        {.field = 行No, .item = u"行No", .source = Derived},
        {.field = 担当者コード, .item = u"担当者コード", .column = u"コード"},
        {.field = 担当者名, .item = u"担当者名", .column = u"氏名"},
        {.field = カナ, .item = u"カナ", .column = u"カナ"},
        {.field = 性別区分名, .item = u"性別区分名", .column = u"性別区分名"},
        {.field = 暗証番号, .item = u"暗証番号", .column = u"暗証番号", .source = Pin},
        {.field = 郵便番号, .item = u"郵便番号", .column = u"郵便番号"},
        {.field = 住所A, .item = u"住所A", .column = u"住所A"},
        // A Null beside a filled 住所A makes LoadStaffRow throw.
        {.field = 住所B, .item = u"住所B", .column = u"住所B", .guard = u"住所A"},
        {.field = 住所C, .item = u"住所C", .column = u"住所C"},
        {.field = 電話, .item = u"電話", .column = u"電話"},
        {.field = 携帯電話, .item = u"携帯電話", .column = u"携帯電話"},
        {.field = EMAIL, .item = u"EMAIL", .column = u"EMAIL"},
        {.field = 所属事業所名, .item = u"所属事業所名", .column = u"事業所名"},
        {.field = 部門名, .item = u"部門名", .column = u"部門名"},
        {.field = セクション名, .item = u"セクション名", .column = u"セクション名"},
        {.field = 役職名, .item = u"役職名", .column = u"役職名"},
        {.field = 在籍区分名, .item = u"在籍区分名", .column = u"在籍区分名"},
        {.field = 社員区分名, .item = u"社員区分名", .column = u"社員区分名"},
        {.field = 生年月日年号, .item = u"生年月日年号", .source = Derived},
        {.field = 生年月日年, .item = u"生年月日年", .source = Derived},
        {.field = 生年月日月, .item = u"生年月日月", .source = Derived},
        {.field = 生年月日日, .item = u"生年月日日", .source = Derived},
        {.field = 入社日付年号, .item = u"入社日付年号", .source = Derived},
        {.field = 入社日付年, .item = u"入社日付年", .source = Derived},
        {.field = 入社日付月, .item = u"入社日付月", .source = Derived},
        {.field = 入社日付日, .item = u"入社日付日", .source = Derived},
        {.field = 退社日付年号, .item = u"退社日付年号", .source = Derived},
        {.field = 退社日付年, .item = u"退社日付年", .source = Derived},
        {.field = 退社日付月, .item = u"退社日付月", .source = Derived},
        {.field = 退社日付日, .item = u"退社日付日", .source = Derived},
        {.field = 担当者メモ, .item = u"担当者メモ", .column = u"担当者メモ"},
        {.field = 登録日付, .item = u"登録日付", .column = u"登録日付", .source = Stamp},
        {.field = 更新日付, .item = u"更新日付", .column = u"更新日付", .source = Stamp},
        {.field = 事業所コード, .column = u"事業所コード"},
        {.field = 部門コード, .column = u"部門コード"},
        {.field = セクションコード, .column = u"セクションコード"},
        {.field = 役職コード, .column = u"役職コード"},
        {.field = 生年月日, .column = u"生年月日"},
        {.field = 入社日付, .column = u"入社日付"},
        {.field = 退社日付, .column = u"退社日付"},
    });
}();
static_assert(kStaffColumns.size() == static_cast<size_t>(kStaffTextCount));
static_assert(std::is_sorted(kStaffColumns.begin(), kStaffColumns.end(),
                             [](const StaffColumn& a, const StaffColumn& b) { return a.field < b.field; }));

constexpr const StaffColumn& ColumnOf(StaffText field) { return kStaffColumns[static_cast<size_t>(field)]; }

/// A date of the list: its stored form yyyymmdd is split into four fields for the screen, and written as a text with
/// the era to a work table.
struct StaffDate {
    StaffText stored;
    StaffText 年号, 年, 月, 日;
    QStringView shownColumn;  ///< column of the work table with that text
};

inline constexpr auto kStaffDates = [] {
    using enum StaffText;
    return std::to_array<StaffDate>({
        {生年月日, 生年月日年号, 生年月日年, 生年月日月, 生年月日日, u"表示生年月日"},
        {入社日付, 入社日付年号, 入社日付年, 入社日付月, 入社日付日, u"表示入社日付"},
        {退社日付, 退社日付年号, 退社日付年, 退社日付月, 退社日付日, u"表示退社日付"},
    });
}();
