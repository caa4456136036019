#pragma once

#include "access/CompanyRecord.h"
#include "access/MasterColumns.h"

/// Fills the record from a row of Mユーザ. A Null leaves its field as it was; platform::DatabaseError when the row
/// lacks a column.
void TakeCompany(const platform::Recordset& row, CompanyRecord& target);
/// The same from a row of M事業所, but for コード, which the operating office alone takes.
void TakeOffice(const platform::Recordset& row, OfficeRecord& target);
