#include "access/RunStart.h"

#include "access/StaffIdentityProcedures.h"
#include "data/RunHistory.h"
#include "platform/RuntimeError.h"
#include "platform/Services.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

void RecordRunStart() {
    try {
        LoadLaunchStaffCode();
        const QString command = TrimBlanks(platform::Services().system->CommandLine());
        InsertHistoryRow(u"開始 "_s + QuoteSqlText(command));
    } catch (const platform::RuntimeError&) {
        return;
    }
}
