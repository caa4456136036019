#pragma once

#include <QString>
#include <array>
#include <vector>

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

/// The result of a search: parallel arrays of a fixed size, so that row access never allocates. Rows after the last one
/// are empty, which painting relies on.
struct StaffRowStore {
    static constexpr int kRows = 32761;            ///< indices 0 to 32760
    static constexpr int kLastClearedRow = 32759;  ///< the row after it only exists as a bound

    std::array<std::vector<QString>, kStaffTextCount> texts;
    std::vector<qint16> 出力対象 = std::vector<qint16>(kRows);  ///< 1: the row is checked for output
    std::vector<qint16> 閲覧区分 =
        std::vector<qint16>(kRows);  ///< -2 unknown viewer, -1 never viewed, else from the log
    std::vector<qint16> rowFlag = std::vector<qint16>(kRows);  ///< only reset and copied

    StaffRowStore() { texts.fill(std::vector<QString>(kRows)); }

    QString& Text(StaffText field, int row) { return texts[static_cast<size_t>(field)].at(static_cast<size_t>(row)); }
    const QString& Text(StaffText field, int row) const {
        return texts[static_cast<size_t>(field)].at(static_cast<size_t>(row));
    }
};
