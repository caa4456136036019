#pragma once

#include <span>

namespace setup {

/// A family or given name of the sample with its reading.
struct SampleName {
    const char16_t* written;
    const char16_t* kana;   ///< half-width; a voiced mark is a character of its own
    const char16_t* latin;  ///< lower case, for mail addresses and log-in names
};

std::span<const SampleName> FamilyNames();
std::span<const SampleName> MaleNames();
std::span<const SampleName> FemaleNames();

}  // namespace setup
