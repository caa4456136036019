#pragma once

#include <QString>

#include "database/Database.h"
#include "globals/CompanyRecord.h"

// Company, operating office and partner systems in Globals(). A program calls LoadUserInformation once, at its start;
// the connections to the general and the configuration database must be open. A failed statement is in the run history.

/// Loads company, partner systems and operating office, in this order, and counts the offices. An operating office
/// without a row is first set to "000". False if there is no company row; the rest is loaded even then. Throws
/// database::DatabaseError if a read fails: that must abort the start and must not rewrite the operating office.
bool LoadCompanyInfo();
/// Fills PartnerLinks. A slot whose partner has no row keeps its values. Throws database::DatabaseError if a read
/// fails.
void LoadPartnerLinks();
/// Loads the operating office into Office; if it has no row, it is set to "000". An office other than "000" overrides
/// the company's PIN requirement, 更新実行区分 and those of the seven folders that it does not leave empty. Throws
/// database::DatabaseError if a read fails.
void LoadOfficeInfo();
/// Sets the operating office in Globals() and in the configuration. A failed write is only logged.
void SetOperatingOffice(const QString& code);
/// Reads any office into OutputOffice, for mail pieces. OutputOffice keeps its values if there is no row or the read
/// fails; a Null keeps the field's value. Throws database::DatabaseError only if the row lacks a column.
void LoadOutputOffice(const QString& code);
/// Sets the caption of prg_ttl, if the main form has it: program, office, staff member. Stores the office's name in
/// OutputOffice; if it cannot be read, the caption has the name that was there, none at the start.
void ShowProgramTitle();

/// LoadCompanyInfo, then sets the default file name of a text output. False if there is no company row or a read fails.
bool LoadUserInformation();

/// Fills the record from a row of Mユーザ. A Null keeps the field's value. Throws database::DatabaseError if the row
/// lacks a column.
void TakeCompany(const database::Recordset& row, CompanyRecord& target);
/// The same from a row of M事業所, except コード, which is only read for the operating office.
void TakeOffice(const database::Recordset& row, OfficeRecord& target);
/// The same from a row of M他業務連携, into one slot.
void TakePartner(const database::Recordset& row, PartnerLinkTable& partners, size_t slot);
