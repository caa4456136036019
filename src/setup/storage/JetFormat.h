#pragma once

#include <QString>
#include <optional>

namespace setup {

/// Refuses, without reading further than the header, a path that is no whole database file of the formats Jet 3, Jet 4
/// or ACE: a folder, pipe or device, another format, a file that is cut inside a page or is larger than the formats
/// allow. Throws platform::RuntimeError.
void CheckJetFile(const QString& path);

/// A stored date as yyyymmdd, with hhnnss after a blank unless it is midnight or `withoutTime`. `days` counts from
/// 1899-12-30; the fraction is the time of day, also of negative numbers. Nothing for a value outside the years 100
/// to 9999, which no program writes.
std::optional<QString> JetDate(double days, bool withoutTime);

}  // namespace setup
