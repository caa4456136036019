#pragma once

#include <QString>
#include <array>
#include <stdexcept>
#include <vector>

/// The conditions of the head of the main form. This record is authoritative; the controls are painted from it. Codes
/// are fixed-width digits, an empty bound counts as a bound; texts are stored as typed.
struct InquiryConditions {
    QString DepartmentFrom, DepartmentTo;
    QString SectionFrom, SectionTo;
    QString PositionFrom, PositionTo;
    QString StaffFrom, StaffTo;
    QString SearchName, SearchKana, SearchPhone, SearchZip, SearchAddress;
    int EnrolmentKind = 0;  ///< >= MaxValue of 在籍区分 means all
    int StaffClass = 0;     ///< >= MaxValue of 社員区分 means all
    int DisplayOrder = 0;   ///< 0 to 4; any other value gives no ORDER BY
};

/// True while the selection window of that name contains a selection, which then replaces the head's item.
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

/// Text fields of a row in the order of clearing. The two 16-bit fields and the row flag are stored separately.
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

/// One field of all rows: a fixed number of values, allocated at the first write. Before that all values are empty.
template <typename Value, size_t kCount>
class RowArray {
  public:
    /// Throws std::out_of_range, as std::vector does.
    Value& at(size_t row) {
        if (values_.empty()) values_.resize(kCount);
        return values_.at(row);
    }
    const Value& at(size_t row) const {
        static const Value empty{};
        if (row >= kCount) throw std::out_of_range("RowArray");
        return values_.empty() ? empty : values_[row];
    }
    Value& operator[](size_t row) { return at(row); }
    const Value& operator[](size_t row) const { return at(row); }

  private:
    std::vector<Value> values_;
};

/// The result of a search: parallel arrays of a fixed size, so that row access does not allocate after the first
/// search. They need 31 MiB, which a program without a list never allocates. Rows after the last one are empty, which
/// painting relies on.
struct StaffRowStore {
    static constexpr int kRows = 32761;            ///< indices 0 to 32760
    static constexpr int kLastClearedRow = 32759;  ///< the row after it only exists as a bound

    std::array<RowArray<QString, kRows>, kStaffTextCount> texts;
    RowArray<qint16, kRows> 出力対象;  ///< 1: the row is checked for output
    RowArray<qint16, kRows> 閲覧区分;  ///< -2 unknown viewer, -1 never viewed, else from the log
    RowArray<qint16, kRows> rowFlag;   ///< only reset and copied

    QString& Text(StaffText field, int row) { return texts[static_cast<size_t>(field)].at(static_cast<size_t>(row)); }
    const QString& Text(StaffText field, int row) const {
        return texts[static_cast<size_t>(field)].at(static_cast<size_t>(row));
    }
};
