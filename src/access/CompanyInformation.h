#pragma once

#include <QString>

#include "database/Database.h"
#include "globals/CompanyRecord.h"

// Loads company, operating office and partner systems into Globals(), once at the start. Both connections must be open.
// A failed read throws database::DatabaseError and leaves its statement in the run history.

/// Loads all three in this order. False if there is no company row; the office is loaded even then. Throws
/// database::DatabaseError: a failed read must abort the start and must not rewrite the operating office.
bool LoadCompanyInfo();
/// A slot whose partner has no row keeps its values.
void LoadPartnerLinks();
/// Loads the operating office, or "000" if it has no row. An office other than "000" overrides the company's PIN
/// requirement, 更新実行区分 and those of the seven folders that it does not leave empty.
void LoadOfficeInfo();
/// Sets the operating office in Globals() and in the configuration. A failed write is not reported.
void SetOperatingOffice(const QString& code);
/// Reads another office into OutputOffice, for mail pieces. Throws nothing: OutputOffice keeps its values if there is
/// no row or the read fails; a Null keeps the field's value.
void LoadOutputOffice(const QString& code);
/// Sets the caption of prg_ttl on the main form: program, office, staff member. Leaves the office's name in
/// OutputOffice. Throws nothing; an office that can no longer be read is omitted.
void ShowProgramTitle();

/// Loads company and office and sets the default file name of a text output. False if there is no company row or any
/// read fails; the failed statement is in the run history.
bool LoadUserInformation();

/// Fills the record from a row of Mユーザ. A Null keeps the field's value. Throws database::DatabaseError if the row
/// lacks a column.
void TakeCompany(const database::Recordset& row, CompanyRecord& target);
/// The same from a row of M事業所, except コード, which is only read for the operating office.
void TakeOffice(const database::Recordset& row, OfficeRecord& target);
/// The same from a row of M他業務連携, into one slot.
void TakePartner(const database::Recordset& row, PartnerLinkTable& partners, size_t slot);
