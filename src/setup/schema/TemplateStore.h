#pragma once

#include <QString>

namespace setup {

/// Makes a file of report forms with the forms of the house and their tables, linked to the report database given by
/// its absolute path. The file must not exist. Throws database::DatabaseError.
void WriteStandardForms(const QString& path, const QString& reportDatabase);

}  // namespace setup
