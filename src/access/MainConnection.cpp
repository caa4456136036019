#include "access/MainConnection.h"

#include "access/StaffIdentityProcedures.h"
#include "data/Connections.h"
#include "data/RunHistory.h"
#include "data/ServerText.h"
#include "globals/ProgramGlobals.h"

using namespace Qt::StringLiterals;

namespace {

/// Searches by name would find no one, and no row would say why.
void RecordServerTextFaults() {
    try {
        for (const ServerTextFault& fault : FindServerTextFaults(Globals().MainConnection))
            RecordRunError(u"一般データベースの%1。次を実行すると直ります。%2"_s.arg(fault.what, fault.remedy));
    } catch (const database::DatabaseError&) {
        // The statements of the start fail as well then, and are recorded.
    }
}

/// True also where the definition row names no known dialect and nothing was opened.
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
