#pragma once

#include <QString>

namespace setup {

/// Creates a template file with the standard reports and their tables, linked to the report database at the given
/// absolute path. The file must not exist. Throws database::DatabaseError.
void WriteStandardForms(const QString& path, const QString& reportDatabase);

}  // namespace setup
