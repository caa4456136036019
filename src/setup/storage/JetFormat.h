#pragma once

#include <QString>
#include <optional>

namespace setup {

/// Reads the header only. Rejects a path that is not a complete database file in the formats Jet 3, Jet 4 or ACE: a
/// folder, pipe or device, another format, a file that ends within a page or is larger than the formats allow. Throws
/// platform::RuntimeError.
void CheckJetFile(const QString& path);

/// A stored date as yyyymmdd, followed by a blank and hhnnss unless it is midnight or `withoutTime`. `days` counts from
/// 1899-12-30; the fraction is the time of day, also of negative numbers. Empty for years outside 100 to 9999, which no
/// program writes.
std::optional<QString> JetDate(double days, bool withoutTime);

}  // namespace setup
