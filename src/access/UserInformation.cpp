#include "access/UserInformation.h"

#include "access/CompanyInformation.h"
#include "database/DatabaseError.h"
#include "globals/ProgramGlobals.h"
#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

/// A company that cannot be read counts like one that is not there. A failed read has stopped the load on the way, so
/// that nothing was corrected by what it seemed to say.
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
    // The office's own folder: where it has none the name begins with the separator, whatever the company's is.
    globals.TextOutputFileName =
        globals.Office.テキスト出力フォルダ + platform::kPathSeparator + globals.ReportName + u".CSV"_s;
    return loaded;
}
