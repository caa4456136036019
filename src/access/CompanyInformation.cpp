#include "access/CompanyInformation.h"

#include <array>

#include "access/MasterColumns.h"
#include "data/Recordsets.h"
#include "database/DatabaseError.h"
#include "globals/ProgramGlobals.h"
#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"
#include "screen/Form.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

const QString kWholeCompany = u"000"_s;

constexpr std::array<QString EstablishmentRecord::*, 7> kOverridingFolders = {
    &EstablishmentRecord::総合振込ファイル,     &EstablishmentRecord::基本読込フォルダ,
    &EstablishmentRecord::帳票イメージフォルダ, &EstablishmentRecord::その他読込ファイル,
    &EstablishmentRecord::本支店連携フォルダ,   &EstablishmentRecord::テキスト出力フォルダ,
    &EstablishmentRecord::BACKUPフォルダ,
};

/// The code is pasted unchanged: one with a quote must fail. Quoted, it would be a missing office, and the operating
/// office would be reset to "000".
QString OfficeStatement(const QString& code) { return u"SELECT * FROM M事業所 WHERE コード = '"_s + code + u"'"_s; }

/// Opens the row of the operating office, or the row "000", which then becomes the operating office. True if there is a
/// row. Throws database::DatabaseError if a read fails; nothing is changed then.
bool OpenOperatingOffice(database::Recordset& row) {
    if (OpenRecordset(row, OfficeStatement(Globals().Environment.OperatingOfficeCode))) return true;
    row.Close();
    const bool found = OpenRecordset(row, OfficeStatement(kWholeCompany));
    // Close throws if the read failed: a temporary failure must not reset the site's office to "000" permanently.
    if (!row.IsOpen()) row.Close();
    SetOperatingOffice(kWholeCompany);
    return found;
}

void TakeOperatingOffice(const database::Recordset& row) {
    ProgramGlobals& globals = Globals();
    TakeText(row[u"コード"], globals.Office.コード);
    globals.Environment.OperatingOfficeCode = globals.Office.コード;
    TakeOffice(row, globals.Office);
}

/// Both numbers override the company even if Null (0), so an office without a PIN setting requires none. A folder
/// overrides only if it is not empty.
void OverrideCompany() {
    ProgramGlobals& globals = Globals();
    globals.PinRequired = globals.Office.暗証番号有無;
    globals.Company.更新実行区分 = globals.Office.更新実行区分;
    for (const auto folder : kOverridingFolders) {
        const QString& own = globals.Office.*folder;
        if (!own.isEmpty()) globals.Company.*folder = own;
    }
}

bool LoadCompany() {
    database::Recordset row;
    const bool found = OpenRecordset(row, u"SELECT * FROM Mユーザ WHERE ID = '0001'"_s);
    if (found) {
        CompanyRecord& company = Globals().Company;
        TakeCompany(row, company);
        Globals().PinRequired = company.暗証番号有無;
    }
    row.Close();
    return found;
}

/// Only makes sure that there is a valid operating office; LoadOfficeInfo reads the row itself.
void CorrectOperatingOffice() {
    database::Recordset row;
    OpenOperatingOffice(row);
    row.Close();
}

void CountOffices() {
    Globals().OfficeCount = 0;
    database::Recordset row;
    if (OpenRecordset(row, u"SELECT COUNT(*) AS 事業所件数 FROM M事業所 WHERE コード <> '000'"_s))
        TakeNumber(row[u"事業所件数"], Globals().OfficeCount);
    row.Close();
}

// "005" is listed twice, so two slots contain the same row. The suite's programs rely on these slot numbers.
constexpr std::array<QStringView, 5> kPartnerCodes = {u"003", u"002", u"004", u"005", u"005"};

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
    if (OpenRecordset(row, OfficeStatement(globals.Environment.OperatingOfficeCode)))
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

/// A failed read is treated like a missing company. It has aborted the load, so nothing was corrected based on it.
bool LoadedWithoutFailure() {
    try {
        return LoadCompanyInfo();
    } catch (const database::DatabaseError&) {
        return false;
    }
}

}  // namespace

void LoadOfficeInfo() {
    database::Recordset row;
    if (OpenOperatingOffice(row)) TakeOperatingOffice(row);
    row.Close();
    if (Globals().Environment.OperatingOfficeCode != kWholeCompany) OverrideCompany();
}

void SetOperatingOffice(const QString& code) {
    Globals().Environment.OperatingOfficeCode = code;
    ExecuteConfigSqlLogged(u"UPDATE 動作環境定義 SET  運用事業所コード = '"_s + code +
                           u"' WHERE 動作環境定義ID = '001'"_s);
}

void LoadOutputOffice(const QString& code) {
    database::Recordset row;
    if (OpenRecordset(row, OfficeStatement(code))) TakeOffice(row, Globals().OutputOffice);
    CloseQuietly(row);
}

bool LoadCompanyInfo() {
    const bool found = LoadCompany();
    CorrectOperatingOffice();
    LoadPartnerLinks();
    LoadOfficeInfo();
    CountOffices();
    return found;
}

void LoadPartnerLinks() {
    for (size_t slot = 0; slot < kPartnerCodes.size(); ++slot) {
        database::Recordset row;
        if (OpenRecordset(
                row, u"SELECT TOP 1 * FROM M他業務連携 WHERE コード = '"_s + kPartnerCodes[slot].toString() + u"'"_s))
            TakePartner(row, Globals().PartnerLinks, slot);
        row.Close();
    }
}

void ShowProgramTitle() {
    const QString title = BaseTitle(Globals().ProgramId) + OfficePart(ReadOfficeName()) + StaffPart();
    if (Control* panel = Globals().MainForm->Find(u"prg_ttl"_s)) panel->SetCaption(title);
}

bool LoadUserInformation() {
    const bool loaded = LoadedWithoutFailure();
    ProgramGlobals& globals = Globals();
    // The office's own folder, not the company's. If it is empty, the name starts with the separator.
    globals.TextOutputFileName =
        globals.Office.テキスト出力フォルダ + platform::kPathSeparator + globals.ReportName + u".CSV"_s;
    return loaded;
}
