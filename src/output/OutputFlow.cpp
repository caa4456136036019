#include "output/OutputFlow.h"

#include "output/ReportDatabase.h"
#include "platform/Services.h"
#include "screen/msgお待ち.h"

using namespace Qt::StringLiterals;

void RunOutput(bool (*build)(), const std::function<void()>& bringOut, const QString& nothing) {
    platform::Dialogs& dialogs = *platform::Services().dialogs;
    if (!OpenReportDatabase()) {
        dialogs.ShowMessage(u"帳票が使用できません。"_s);
        return;
    }
    ShowWaitDialog();
    if (build())
        bringOut();
    else
        dialogs.ShowMessage(nothing);
    UnloadWaitDialog();
    CloseReportDatabase();
}
