#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <array>
#include <optional>

#include "database/Database.h"

namespace setup {

/// A table of classes of the general database.
struct ClassTable {
    QStringView table;
    QStringView staffColumn;  ///< of M担当者, joined by the list: staff without a row drop out; empty if not joined
    bool numbered;            ///< the programs use the number of a row as its class
};

inline constexpr std::array kClassTables = {
    ClassTable{u"K性別区分", u"性別区分", false},
    ClassTable{u"K在籍区分", u"在籍区分", true},
    ClassTable{u"K社員区分", u"社員区分", true},
    ClassTable{u"K稼動状況区分", u"", true},
};

/// A class that staff have but that has no row.
struct UnlistedClass {
    QString value;  ///< null for a Null
    QString count;  ///< number of staff
};

/// Content of a class table.
struct ClassState {
    QStringList rows;  ///< 区分 in the order of the programs, a Null as empty text
    QList<UnlistedClass> unlisted;

    bool HasDuplicates() const;
    /// False if a class that the programs use as a number would be another row.
    bool IsNumbered() const;
    /// Classes from 0 to 9 that are missing below the largest one, or that staff have.
    QStringList MissingDigits(const ClassTable& table) const;
    /// True if a row or a staff member has a class that is no digit, for which no row can be added.
    bool HasOthers(const ClassTable& table) const;
};

/// True for the texts "0" to "9".
bool IsClassDigit(const QString& value);

/// Reads a class table and the staff's classes; nullopt if the table or column is missing. Throws
/// database::DatabaseError.
std::optional<ClassState> ReadClassState(database::Connection& general, const ClassTable& table);

}  // namespace setup
