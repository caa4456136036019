#pragma once

#include <QString>

// Company, operating office and partner systems, loaded once at the start into Globals().

/// False when there is no company row. A read that fails rises: it ends the start and must not rewrite the office.
bool LoadCompanyInfo();
void LoadPartnerLinks();
/// The operating office and what it overrides of the company.
void LoadOfficeInfo();
/// Makes an office the operating one, here and in the configuration.
void SetOperatingOffice(const QString& code);
/// Reads another office into OutputOffice, for mail pieces.
void LoadOutputOffice(const QString& code);
/// Caption of prg_ttl: program, office, staff member.
void ShowProgramTitle();
