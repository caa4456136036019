#include "frame/UserInformation.h"

#include "frame/JoinedLater.h"
#include "frame/ProgramGlobals.h"
#include "platform/FileSystem.h"

using namespace Qt::StringLiterals;

bool LoadUserInformation() {
    const bool loaded = LoadCompanyInfo();
    ProgramGlobals& globals = Globals();
    globals.TextOutputFileName = OfficeTextOutputFolder() + platform::kPathSeparator + globals.ReportName + u".CSV"_s;
    return loaded;
}
