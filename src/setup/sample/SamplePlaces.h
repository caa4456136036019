#pragma once

#include <span>

namespace setup {

/// A real town, as needed for an address.
struct SamplePlace {
    const char16_t* postalCode;  ///< 123-4567
    const char16_t* city;        ///< prefecture and city, the first address line
    const char16_t* town;        ///< start of the second address line
    const char16_t* areaCode;    ///< of the telephone number, with leading 0
};

std::span<const SamplePlace> SamplePlaces();
std::span<const char16_t* const> SampleBuildings();

}  // namespace setup
