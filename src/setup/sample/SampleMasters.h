#pragma once

#include <span>

#include "setup/schema/DatabaseFileWriter.h"

namespace setup {

struct SampleSection {
    const char16_t* department;
    const char16_t* code;
};

/// Offices that work as such, "000" left out.
std::span<const char16_t* const> SampleOfficeCodes();
/// Sections in operation, each under its department.
std::span<const SampleSection> SampleSections();

/// Company, offices, departments, sections, positions, class tables, eras and partner systems. `askPins`: company and
/// offices ask for PINs, so that rights count; otherwise none of them does.
void WriteMasters(DatabaseFileWriter& store, bool askPins);

}  // namespace setup
