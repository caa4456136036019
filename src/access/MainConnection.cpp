#include "access/MainConnection.h"

#include "access/StaffIdentityProcedures.h"
#include "data/Connections.h"
#include "data/RunHistory.h"
#include "data/ServerText.h"
#include "globals/ProgramGlobals.h"

using namespace Qt::StringLiterals;

namespace {

/// With such a fault, searches by name find no rows, and no error is recorded.
void RecordServerTextFaults() {
    try {
        for (const ServerTextFault& fault : FindServerTextFaults(Globals().MainConnection))
            RecordRunError(u"一般データベースの%1。次を実行すると直ります。%2"_s.arg(fault.what, fault.remedy));
    } catch (const database::DatabaseError&) {
        // The other statements of the start then fail as well and are recorded.
    }
}

/// Also true if the definition row has an unknown dialect and nothing was opened.
bool OpenOrRecord() {
    try {
        OpenGeneralConnection();
        RecordServerTextFaults();
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
