#include "access/CompanyInformationOffice.h"

#include <array>

#include "access/CompanyInformation.h"
#include "access/CompanyInformationColumns.h"
#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"

using namespace Qt::StringLiterals;

namespace {

const QString kWholeCompany = u"000"_s;

constexpr std::array<QString EstablishmentRecord::*, 7> kOverridingFolders = {
    &EstablishmentRecord::総合振込ファイル,     &EstablishmentRecord::基本読込フォルダ,
    &EstablishmentRecord::帳票イメージフォルダ, &EstablishmentRecord::その他読込ファイル,
    &EstablishmentRecord::本支店連携フォルダ,   &EstablishmentRecord::テキスト出力フォルダ,
    &EstablishmentRecord::BACKUPフォルダ,
};

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

}  // namespace

QString OfficeStatement(const QString& code) { return u"SELECT * FROM M事業所 WHERE コード = '"_s + code + u"'"_s; }

bool OpenOperatingOffice(database::Recordset& row) {
    if (OpenRecordset(row, OfficeStatement(Globals().Environment.OperatingOfficeCode), false)) return true;
    row.Close();
    const bool found = OpenRecordset(row, OfficeStatement(kWholeCompany), false);
    // Close throws if the read failed: a temporary failure must not reset the site's office to "000" permanently.
    if (!row.IsOpen()) row.Close();
    SetOperatingOffice(kWholeCompany);
    return found;
}

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
    if (OpenRecordset(row, OfficeStatement(code), false)) TakeOffice(row, Globals().OutputOffice);
    CloseQuietly(row);
}
