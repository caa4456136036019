#pragma once

#include "access/MasterColumns.h"
#include "globals/CompanyRecord.h"

/// Fills the record from a row of Mユーザ. A Null leaves its field as it was; database::DatabaseError when the row
/// lacks a column.
void TakeCompany(const database::Recordset& row, CompanyRecord& target);
/// The same from a row of M事業所, but for コード, which the operating office alone takes.
void TakeOffice(const database::Recordset& row, OfficeRecord& target);
