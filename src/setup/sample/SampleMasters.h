#pragma once

#include <span>

#include "setup/schema/DatabaseFileWriter.h"

namespace setup {

struct SampleSection {
    const char16_t* department;
    const char16_t* code;
};

/// Codes of the offices, without "000", which means the whole company.
std::span<const char16_t* const> SampleOfficeCodes();
/// Active sections with their departments.
std::span<const SampleSection> SampleSections();

/// Company, offices, departments, sections, positions, class tables, eras and partner systems. `askPins`: company and
/// offices require PINs, so that rights are enforced; otherwise none of them does.
void WriteMasters(DatabaseFileWriter& store, bool askPins);

}  // namespace setup
