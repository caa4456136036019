#pragma once

#include <QString>

// Company, operating office and partner systems, loaded once at the start into Globals(). Both connections are open.
// What the reads of the start run into rises as database::DatabaseError, and the run history has the statement.

/// All of it, in order. False when there is no company row; the office is loaded all the same. A read that fails rises:
/// it ends the start and must not rewrite the office.
bool LoadCompanyInfo();
/// A partner without a row leaves its slot as it is.
void LoadPartnerLinks();
/// The operating office, or "000" for one that has no row, and what it overrides of the company: the demand for a PIN,
/// 更新実行区分, and those of its seven folders that are not empty.
void LoadOfficeInfo();
/// Makes an office the operating one, here and in the configuration. A failed write is not told of.
void SetOperatingOffice(const QString& code);
/// Reads another office into OutputOffice, for mail pieces. Nothing rises: without a row, and after a failed read,
/// OutputOffice stays as it is, and so do its fields where the row has a Null.
void LoadOutputOffice(const QString& code);
/// Caption of prg_ttl on the main form: program, office, staff member. Leaves the office's name in OutputOffice.
/// Nothing rises: an office that cannot be read any more is left out.
void ShowProgramTitle();
