// Part of StaffQuery.h: LaunchStaffRegistration.

#include "access/ProgramLinks.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/ListStatus.h"
#include "inquiry/StaffQuery.h"
#include "platform/Services.h"
#include "text/TimeStamp.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

const QString kRegistration = u"要員台帳更新"_s;
constexpr int kStaffCodeLength = 5;

/// Office and staff code of exactly five characters; the other program splits them by position.
QString KeyOf(const QString& staffCode) {
    return Globals().ScopeOfficeCode + staffCode.left(kStaffCodeLength).leftJustified(kStaffCodeLength);
}

void StartAndAwait(const QString& key, const QString& earliest) {
    const AwaitedProgram awaited(kRegistration);
    SendLinkMessage(kRegistration, key);
    platform::Services().processes->StartProgram(
        Globals().Layout.ProgramFolder + platform::kPathSeparator + kRegistration + u".exe"_s, key);
    WaitForLinkedProgram(kRegistration, key, earliest);
}

}  // namespace

void LaunchStaffRegistration(int position) {
    const QString earliest = TimeStamp(platform::Services().clock->Now());
    const int row = Globals().TopRow + position;
    const QString code = Globals().Rows.Text(StaffText::担当者コード, row);
    if (TrimBlanks(code).isEmpty()) return;
    try {
        StartAndAwait(KeyOf(code), earliest);
        ReloadStaffRow(row);
    } catch (const platform::RuntimeError&) {
        // The form stays disabled: only a completed wait enables it.
        platform::Services().dialogs->ShowMessage(u"情報登録プログラムが有りません"_s);
    }
}
