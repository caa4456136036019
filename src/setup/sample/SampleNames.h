#pragma once

#include <QString>
#include <span>

namespace setup {

/// A family or given name of the sample with its reading.
struct SampleName {
    QString written;
    QString kana;   ///< half-width; a voiced mark is a character of its own
    QString latin;  ///< lower case, for mail addresses and log-in names
};

std::span<const SampleName> FamilyNames();
std::span<const SampleName> MaleNames();
std::span<const SampleName> FemaleNames();

}  // namespace setup
