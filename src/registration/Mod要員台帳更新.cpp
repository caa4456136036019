#include "registration/Mod要員台帳更新.h"

#include "access/CompanyInformation.h"
#include "access/ProgramLinks.h"
#include "access/ProgramRights.h"
#include "access/StartUp.h"
#include "globals/ProgramGlobals.h"
#include "platform/Services.h"
#include "registration/frm要員台帳更新.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

const QString kNoDatabase = u"データベースが使用できません。"_s;

/// The steps that can refuse the start, in this order.
bool StartIsPossible(frm要員台帳更新& form, const RegistrationCommand& command) {
    if (!InitializeData(RegistrationCommand::kLength)) return RefuseStart(kNoDatabase);
    if (!LoadUserInformation()) return RefuseStart(u"ユーザ情報が使用できません。"_s);
    if (!command.office.isEmpty()) Globals().ScopeOfficeCode = command.office;
    if (!CheckProgramPermission(Globals().MenuName, Globals().ProgramId, Operation::Start))
        return RefuseStart(u"操作権限がありません。"_s);
    if (command.staff.isEmpty()) return RefuseStart(u"担当者コードが指定されていません。"_s);
    if (!form.OpenStore()) return RefuseStart(kNoDatabase);
    return true;
}

/// A failed read must not be reported as a missing person: the clerk would register the person a second time.
bool OpenPerson(frm要員台帳更新& form, const QString& code) {
    const StoreOutcome outcome = form.Open(code);
    if (outcome == StoreOutcome::Done) return true;
    return RefuseStart(outcome == StoreOutcome::Gone ? u"担当者コード %1 は登録されていません。"_s.arg(code)
                                                     : kNoDatabase);
}

}  // namespace

RegistrationCommand ParseRegistrationCommand(const QString& commandLine) {
    const QString command = TrimBlanks(commandLine);
    QString staff = command.mid(3, 5);
    while (staff.endsWith(u' ')) staff.chop(1);
    return {command.left(3), staff};
}

void StartRegistration() {
    ProgramGlobals& globals = Globals();
    BeginProgram(u"要員台帳更新"_s);
    // Every question of this program is about deleting a person or discarding input.
    platform::Services().dialogs->defaultAnswer = platform::Dialogs::Answer::No;
    // Never deleted: the process exits without running destructors.
    auto* form = new frm要員台帳更新(LeaveProgram, AnswerStarter);
    globals.MainForm = form;
    const RegistrationCommand command = ParseRegistrationCommand(platform::Services().system->CommandLine());
    if (!StartIsPossible(*form, command)) return;
    if (!OpenPerson(*form, command.staff)) return;
    ShowProgramTitle();
    form->ShowModeless();
}
