#include "frame/UserInformation.h"

#include "access/CompanyInformation.h"
#include "frame/ProgramGlobals.h"
#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

bool LoadedWithoutFailure() {
    try {
        return LoadCompanyInfo();
    } catch (const platform::DatabaseError&) {
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
