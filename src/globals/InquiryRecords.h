#pragma once

#include <QString>

/// The search conditions in the head (upper part) of the main form. This record is authoritative; the controls are
/// painted from it. Bounds of the code ranges are digits of fixed width, and an empty one is compared as well; texts
/// are stored as typed.
struct InquiryConditions {
    QString DepartmentFrom, DepartmentTo;
    QString SectionFrom, SectionTo;
    QString PositionFrom, PositionTo;
    QString StaffFrom, StaffTo;
    QString SearchName, SearchKana, SearchPhone, SearchZip, SearchAddress;
    int EnrolmentKind = 0;  ///< 区分 of K在籍区分; MaxValue of the control 在籍区分 or more: all
    int StaffClass = 0;     ///< 区分 of K社員区分; MaxValue of the control 社員区分 or more: all
    int DisplayOrder = 0;   ///< index into DisplayOrders(); any other value: no ORDER BY
};

/// True while the selection window for that condition has a selection, which replaces the item in the head.
struct ConditionFlags {
    bool NameListGiven = false;
    bool KanaListGiven = false;
    bool AddressListGiven = false;
    bool PhoneListGiven = false;
    bool ZipListGiven = false;
    bool DepartmentPicked = false;
    bool SectionPicked = false;
    bool PositionPicked = false;
    bool StaffPicked = false;
};

/// Text fields of a row of StaffRowStore, in the order in which a row is cleared.
enum class StaffText {
    行No,
    担当者コード,
    担当者名,
    カナ,
    性別区分名,
    暗証番号,
    郵便番号,
    住所A,
    住所B,
    住所C,
    電話,
    携帯電話,
    EMAIL,
    所属事業所名,
    部門名,
    セクション名,
    役職名,
    在籍区分名,
    社員区分名,
    生年月日年号,
    生年月日年,
    生年月日月,
    生年月日日,
    入社日付年号,
    入社日付年,
    入社日付月,
    入社日付日,
    退社日付年号,
    退社日付年,
    退社日付月,
    退社日付日,
    担当者メモ,
    登録日付,
    更新日付,
    事業所コード,
    部門コード,
    セクションコード,
    役職コード,
    生年月日,
    入社日付,
    退社日付,
};
inline constexpr int kStaffTextCount = static_cast<int>(StaffText::退社日付) + 1;
