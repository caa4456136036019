#pragma once

#include "access/MasterColumns.h"
#include "globals/CompanyRecord.h"

/// Fills the record from a row of Mユーザ. A Null keeps the field's value. Throws database::DatabaseError if the row
/// lacks a column.
void TakeCompany(const database::Recordset& row, CompanyRecord& target);
/// The same from a row of M事業所, except コード, which is only read for the operating office.
void TakeOffice(const database::Recordset& row, OfficeRecord& target);
