#pragma once

#include <QString>
#include <QStringView>
#include <array>

// Who may do what. A right is a text whose numeric value 0 allows. `menu` is a menu of the suite, which is also the
// name of the menu's table in the configuration database; `programId` a program in it.

/// Operations that need a right. The values are positions in kOperationRightColumns.
enum class Operation { Start, Input, Change, Delete, Print, Preview, TextOutput, ImageOutput };

/// Columns of the operation rights by operation, in the staff master and in the personal rules.
inline constexpr std::array<QStringView, 8> kOperationRightColumns = {
    u"操作許可", u"入力許可",     u"修正許可",         u"削除許可",
    u"印刷許可", u"プレビュ許可", u"テキスト出力許可", u"イメージ出力許可"};

/// Columns of the rights to programs by their class (処理分類, 0 to 9) in the menu.
inline constexpr std::array<QStringView, 10> kClassRightColumns = {
    u"処理分類0操作許可", u"処理分類1操作許可", u"処理分類2操作許可", u"処理分類3操作許可", u"処理分類4操作許可",
    u"処理分類5操作許可", u"処理分類6操作許可", u"処理分類7操作許可", u"処理分類8操作許可", u"処理分類9操作許可"};

/// Reads the code of the last sign-in from the configuration into LaunchingStaffCode. True if there is one. Throws
/// database::DatabaseError if the configuration cannot be read.
bool LoadLaunchStaffCode();
/// Fills the staff identity from the staff master. True if the row exists. A Null keeps the field's value. Throws
/// database::DatabaseError if the master cannot be read.
bool LoadStaffIdentity(const QString& code);
/// Stores LaunchingStaffCode, unless blank, as the last sign-in in the configuration and loads the identity. A failed
/// write shows a message. Throws database::DatabaseError if the master cannot be read.
void SaveLaunchStaffCode();

/// True if the launching staff member has the right to the operation. Reads configuration and staff at each call. If no
/// PIN is required, all is allowed, although the reads still take place; otherwise the PIN dialog is shown if the right
/// is missing. Throws database::DatabaseError if the staff member cannot be read.
bool CheckProgramPermission(const QString& menu, const QString& programId, Operation operation);

/// Identifies the staff member and evaluates the right, without a dialog. The result is also in OperatorAuthenticated;
/// false if no staff member is known. Throws database::DatabaseError if the staff member cannot be read.
bool LoadIdentityAndRights(const QString& menu, const QString& programId, Operation operation);
/// Evaluates the personal rule for the program, or else the rule of the program's class in the menu; then the
/// operation's right. A personal rule replaces the operation rights in Globals(). A rule that cannot be read counts as
/// missing; a program that is not in the menu is refused.
bool EvaluateProgramRights(const QString& menu, const QString& programId, Operation operation);

/// Shows the modal PIN dialog (msg暗証番号確認.cpp) with this caption and returns when it has been closed. After a
/// successful sign-in the person is the launching staff member and OperatorAuthenticated is set; after a cancel the
/// staff member is unknown.
void AskForPin(const QString& caption);
