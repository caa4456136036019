#include "frame/Mod要員名簿照会.h"

#include "access/CompanyInformation.h"
#include "access/ProgramRights.h"
#include "access/StartUp.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/ConditionProcedures.h"
#include "inquiry/ScreenState.h"
#include "mainform/frm要員名簿照会.h"
#include "platform/Services.h"
#include "screen/modクライアント処理.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

/// The steps that can refuse the start, in this order.
bool StartIsPossible() {
    if (!InitializeData()) return RefuseStart(u"データベースが使用できません。"_s);
    if (!LoadUserInformation()) return RefuseStart(u"ユーザ情報が使用できません。"_s);
    PublishConditionLabels(Globals().MenuName, Globals().ProgramId);
    if (!CheckProgramPermission(Globals().MenuName, Globals().ProgramId, Operation::Start))
        return RefuseStart(u"操作権限がありません。"_s);
    return true;
}

void ApplyStartCommand() {
    SetInitialConditions();
    const QString command = TrimBlanks(platform::Services().system->CommandLine());
    Globals().StartCommandAbsent = true;
    if (!command.isEmpty()) ParseStartCommand(command);
}

void ShowMainForm(Form& form) {
    AdaptScreenToHeight();
    form.ShowModeless();
    Globals().ListNextItem = FindNextTabItem(&form, Globals().FirstHeadItem);
    Globals().ListNextItem->SetFocus();
    SaveScreenshotIfHeadless(form);
}

}  // namespace

void Main() {
    ProgramGlobals& globals = Globals();
    BeginProgram(u"要員名簿照会"_s);
    // Never deleted: the process exits without running destructors.
    globals.MainForm = new frm要員名簿照会(LeaveProgram);
    globals.RowsPerPage = kRowPositions;
    if (!StartIsPossible()) return;
    ApplyStartCommand();
    ShowMainForm(*globals.MainForm);
}
