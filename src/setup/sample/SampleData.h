#pragma once

#include <QString>
#include <QtGlobal>
#include <span>

namespace setup {

/// Random numbers that depend only on seed and stream; the distributions of the standard library differ between
/// implementations. Each staff member uses a separate stream, so that a larger sample begins with the people of a
/// smaller one.
class SampleRandom {
  public:
    SampleRandom(quint64 seed, quint64 stream) : state_(Mix(seed + Mix(stream))) {}

    quint64 Next() { return Mix(state_ += kStep); }
    int Below(int bound) { return static_cast<int>(Next() % static_cast<quint64>(bound)); }
    /// Inclusive bounds.
    int Between(int low, int high) { return low + Below(high - low + 1); }
    bool Percent(int chance) { return Below(100) < chance; }
    template <typename T>
    const T& Pick(std::span<const T> items) {
        return items[static_cast<size_t>(Below(static_cast<int>(items.size())))];
    }

  private:
    static constexpr quint64 kStep = 0x9E3779B97F4A7C15ULL;
    static quint64 Mix(quint64 value) {
        value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9ULL;
        value = (value ^ (value >> 27)) * 0x94D049BB133111EBULL;
        return value ^ (value >> 31);
    }
    quint64 state_;
};

/// A family or given name with its reading.
struct SampleName {
    QString written;
    QString kana;   ///< half-width; the voicing mark is a separate character
    QString latin;  ///< lower case, for mail addresses and login names
};

std::span<const SampleName> FamilyNames();
std::span<const SampleName> MaleNames();
std::span<const SampleName> FemaleNames();

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
