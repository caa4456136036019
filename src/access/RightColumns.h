#pragma once

#include <QStringView>
#include <array>

/// Columns of the operation rights by operation number, in the staff master and in the personal rules.
inline constexpr std::array<QStringView, 8> kOperationRightColumns = {
    u"操作許可", u"入力許可",     u"修正許可",         u"削除許可",
    u"印刷許可", u"プレビュ許可", u"テキスト出力許可", u"イメージ出力許可"};

/// Columns of the rights to the classes 0 to 9.
inline constexpr std::array<QStringView, 10> kClassRightColumns = {
    u"処理分類0操作許可", u"処理分類1操作許可", u"処理分類2操作許可", u"処理分類3操作許可", u"処理分類4操作許可",
    u"処理分類5操作許可", u"処理分類6操作許可", u"処理分類7操作許可", u"処理分類8操作許可", u"処理分類9操作許可"};
