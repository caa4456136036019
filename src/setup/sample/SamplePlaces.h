#pragma once

#include <span>

namespace setup {

/// A town that exists, as an address line needs it.
struct SamplePlace {
    const char16_t* postalCode;  ///< 123-4567
    const char16_t* city;        ///< prefecture and city, the first address line
    const char16_t* town;        ///< begins the second address line
    const char16_t* areaCode;    ///< of the telephone, with its leading 0
};

std::span<const SamplePlace> SamplePlaces();
std::span<const char16_t* const> SampleBuildings();

}  // namespace setup
