#pragma once

#include <QString>
#include <array>

/// The staff member on whose behalf the program runs. Rights are inverted: the numeric value 0 allows.
struct StaffIdentity {
    QString LaunchingStaffCode;  ///< empty when nobody is known
    QString StaffName;
    QString OfficeCode, DepartmentCode, SectionCode, PositionCode;
    int StaffClass = 0;
    QString LoginId;
    int AccessLevel = 0;
    std::array<QString, 10> ClassRights;  ///< 処理分類0操作許可 to 処理分類9操作許可
    std::array<QString, 8> OperationRights;  ///< 操作許可, 入力, 修正, 削除, 印刷, プレビュ, テキスト出力, イメージ出力
};
