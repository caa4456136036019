#include "access/UserInformation.h"

#include "access/CompanyInformation.h"
#include "database/DatabaseError.h"
#include "globals/ProgramGlobals.h"
#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

/// A failed read is treated like a missing company. It has aborted the load, so nothing was corrected based on it.
bool LoadedWithoutFailure() {
    try {
        return LoadCompanyInfo();
    } catch (const database::DatabaseError&) {
        return false;
    }
}

}  // namespace

bool LoadUserInformation() {
    const bool loaded = LoadedWithoutFailure();
    ProgramGlobals& globals = Globals();
    // The office's own folder, not the company's. If it is empty, the name starts with the separator.
    globals.TextOutputFileName =
        globals.Office.テキスト出力フォルダ + platform::kPathSeparator + globals.ReportName + u".CSV"_s;
    return loaded;
}
