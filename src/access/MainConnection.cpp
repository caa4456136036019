#include "access/MainConnection.h"

#include "access/StaffIdentityProcedures.h"
#include "data/Connections.h"
#include "data/RunHistory.h"
#include "frame/ProgramGlobals.h"

using namespace Qt::StringLiterals;

namespace {

/// True also where the definition row names no known dialect and nothing was opened.
bool OpenOrRecord() {
    try {
        OpenGeneralConnection();
        return true;
    } catch (const platform::RuntimeError& error) {
        RecordRunError(u"DB_OPEN ERROR"_s + QString::number(error.Number()) + u' ' + error.Description());
        return false;
    }
}

}  // namespace

bool OpenMainConnection() {
    ProgramGlobals& globals = Globals();
    globals.MainConnectionOpen = OpenOrRecord();
    if (!globals.MainConnectionOpen) return false;
    if (LoadLaunchStaffCode()) LoadStaffIdentity(QString(globals.Staff.LaunchingStaffCode));
    return true;
}
