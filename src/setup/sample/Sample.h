#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QtGlobal>
#include <span>

#include "setup/schema/DatabaseFileWriter.h"

namespace setup {

// The data of a new installation. The procedures that write rows throw database::DatabaseError.

/// Reference date of the sample (yyyymmdd) and its year. They do not depend on the current date.
inline constexpr int kReferenceYear = 2026;
inline constexpr const char16_t* kReferenceDay = u"20261001";

/// The staff member who launches the programs of a new installation and has all rights.
inline constexpr const char16_t* kLaunchingStaff = u"00001";

/// Code of the staff member at a 0-based index: 5 digits, from "00001" on.
QString StaffCode(int place);

struct StaffRequest {
    int count;
    quint64 seed;
    bool trialRights;  ///< the first few have different rights (SetTrialRights)
};

/// Rows of M担当者. The same seed gives the same people; a larger count appends people.
void WriteStaff(DatabaseFileWriter& store, const StaffRequest& request);

struct SampleSection {
    const char16_t* department;
    const char16_t* code;
};

/// Codes of the offices, without "000", which means the whole company.
std::span<const char16_t* const> SampleOfficeCodes();
/// Active sections with their departments.
std::span<const SampleSection> SampleSections();

/// The rows of K年号区分 as lines "開始日付|名称".
QStringList StandardEras();

/// Company, offices, departments, sections, positions, class tables, eras and partner systems. `askPins`: company and
/// offices require PINs, so that rights are enforced; otherwise none of them does.
void WriteMasters(DatabaseFileWriter& store, bool askPins);

/// Rows of T閲覧 for about a third of the staff, viewed by the launching staff member and a few others. `count`: number
/// of people; `seed`: that of the staff.
void WriteViewLog(DatabaseFileWriter& store, int count, quint64 seed);

/// Per-program rights of one person in 25; they override the general rights.
void WritePersonalRights(DatabaseFileWriter& store, int count, quint64 seed);

/// Gives the first few people of the sample different rights, so that each right can be tried out once PINs are
/// required. Overwrites the rights, login, office and status already set in `row`; does nothing for the others.
void SetTrialRights(TableWriter& row, int place);

/// The same people as lines for display: code, login, PIN in clear text and rights. Throws database::DatabaseError.
QStringList TrialPeople(const QString& generalFile, const QString& keyFile);

/// The clerk's manual as RTF (ASCII only), which word processors also open with the suffix .doc.
QByteArray ManualDocument();

/// Writes the manual to a file. Throws platform::RuntimeError.
void WriteManual(const QString& path);

}  // namespace setup
