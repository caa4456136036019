#include "access/CompanyInformation.h"

#include "access/CompanyInformationColumns.h"
#include "access/CompanyInformationOffice.h"
#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"

using namespace Qt::StringLiterals;

namespace {

bool LoadCompany() {
    database::Recordset row;
    const bool found = OpenRecordset(row, u"SELECT * FROM Mユーザ WHERE ID = '0001'"_s, false);
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
    if (OpenRecordset(row, u"SELECT COUNT(*) AS 事業所件数 FROM M事業所 WHERE コード <> '000'"_s, false))
        TakeNumber(row[u"事業所件数"], Globals().OfficeCount);
    row.Close();
}

}  // namespace

bool LoadCompanyInfo() {
    const bool found = LoadCompany();
    CorrectOperatingOffice();
    LoadPartnerLinks();
    LoadOfficeInfo();
    CountOffices();
    return found;
}
