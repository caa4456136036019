#pragma once

#include <QString>
#include <span>

namespace setup {

/// A family or given name with its reading.
struct SampleName {
    QString written;
    QString kana;   ///< half-width; the voicing mark is a separate character
    QString latin;  ///< lower case, for mail addresses and login names
};

std::span<const SampleName> FamilyNames();
std::span<const SampleName> MaleNames();
std::span<const SampleName> FemaleNames();

}  // namespace setup
