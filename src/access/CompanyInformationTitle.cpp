#include <array>

#include "access/CompanyInformation.h"
#include "access/CompanyInformationOffice.h"
#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "screen/Form.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

struct ProgramTitle {
    QStringView programId;
    QStringView title;
};

// The suite's menus are shown by shorter names, any other program by its id.
constexpr std::array kMenuTitles = {
    ProgramTitle{u"販路推進", u"販路推進"},
    ProgramTitle{u"販路推進データ管理", u"データ管理"},
    ProgramTitle{u"販路推進補助機能", u"補助機能"},
    ProgramTitle{u"販路推進サービスメニュ", u"サービスメニュー"},
    ProgramTitle{u"販路推進マイメニュ", u"マイメニュー"},
};

QString BaseTitle(const QString& programId) {
    for (const ProgramTitle& menu : kMenuTitles)
        if (menu.programId == programId) return menu.title.toString();
    return programId;
}

/// The name is also the first field of OutputOffice, as mail pieces expect it.
QString ReadOfficeName() {
    ProgramGlobals& globals = Globals();
    database::Recordset row;
    if (OpenRecordset(row, OfficeStatement(globals.Environment.OperatingOfficeCode), false))
        globals.OutputOffice.名称 = row[u"名称"].TextOr(QString());
    CloseQuietly(row);
    return globals.OutputOffice.名称;
}

/// A company without offices does not show "(全社)".
QString OfficePart(const QString& officeName) {
    const ProgramGlobals& globals = Globals();
    if (globals.Environment.OperatingOfficeCode == u"000"_s) return globals.OfficeCount > 0 ? u"(全社)"_s : QString();
    return TrimBlanks(officeName).isEmpty() ? QString() : u"("_s + officeName + u")"_s;
}

QString StaffPart() {
    const StaffIdentity& staff = Globals().Staff;
    return staff.LaunchingStaffCode.isEmpty() ? QString() : u"「"_s + staff.StaffName + u"」"_s;
}

}  // namespace

void ShowProgramTitle() {
    const QString title = BaseTitle(Globals().ProgramId) + OfficePart(ReadOfficeName()) + StaffPart();
    if (Control* panel = Globals().MainForm->Find(u"prg_ttl"_s)) panel->SetCaption(title);
}
