#pragma once

#include <QString>
#include <QStringView>
#include <array>

/// Operations that need a right. The values are positions in kOperationRightColumns.
enum class Operation { Start, Input, Change, Delete, Print, Preview, TextOutput, ImageOutput };

/// Columns of the operation rights by operation, in the staff master and in the personal rules.
inline constexpr std::array<QStringView, 8> kOperationRightColumns = {
    u"操作許可", u"入力許可",     u"修正許可",         u"削除許可",
    u"印刷許可", u"プレビュ許可", u"テキスト出力許可", u"イメージ出力許可"};

/// Columns of the rights to the classes 0 to 9.
inline constexpr std::array<QStringView, 10> kClassRightColumns = {
    u"処理分類0操作許可", u"処理分類1操作許可", u"処理分類2操作許可", u"処理分類3操作許可", u"処理分類4操作許可",
    u"処理分類5操作許可", u"処理分類6操作許可", u"処理分類7操作許可", u"処理分類8操作許可", u"処理分類9操作許可"};

/// Reads the last sign-in's code from the configuration into LaunchingStaffCode. True if there is one.
bool LoadLaunchStaffCode();
/// Fills the staff identity from the staff master. True if the row exists. A Null keeps the field's value.
bool LoadStaffIdentity(const QString& code);
/// Stores the code as the configuration's last sign-in and loads its identity. A failed write shows a message.
void SaveLaunchStaffCode();

/// True if the launching staff member has the right to the operation. Reads configuration and staff at each call. If no
/// PIN is required, all is allowed, although the reads still take place; otherwise the PIN dialog is shown if the right
/// is missing.
bool CheckProgramPermission(const QString& menu, const QString& programId, Operation operation);

/// Identifies the staff member and evaluates the right. Sets OperatorAuthenticated.
bool LoadIdentityAndRights(const QString& menu, const QString& programId, Operation operation);
/// Evaluates the personal rule, or else the rule of the program's class in the menu, then the operation's right.
bool EvaluateProgramRights(const QString& menu, const QString& programId, Operation operation);

/// Shows a modal PIN dialog with this caption and returns when it has been closed. After a successful sign-in the
/// person is the launching staff member and OperatorAuthenticated is set; after a cancel the staff member is unknown.
void AskForPin(const QString& caption);
