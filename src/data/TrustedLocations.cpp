// Part of ReportHostTrust.h: ReadRegistryText, NewLocationName and OpenLocationFor.

#include "data/ReportHostTrust.h"

#include "platform/Services.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

constexpr int kBuffer = 256;
constexpr qsizetype kLocationWord = 8;  // length of "Location" before the number

QString LocationName(qint64 number) { return u"Location"_s + (number == 0 ? QString() : QString::number(number)); }

qint64 NumberIn(const QString& name) {
    return NumericValue(QStringView(name).sliced(qMin(kLocationWord, name.size())));
}

/// The name of a location; nullopt after the last one.
std::optional<QString> NameAt(const RegistryKey& locations, int index) {
    QString name(kBuffer, u' ');
    int length = kBuffer;
    if (Services().registry->EnumKey(locations, index, name, length) != kRegistryDone) return std::nullopt;
    return name.first(length);
}

std::optional<QString> PathOf(const RegistryKey& locations, const QString& name) {
    RegistryKey location;
    if (Services().registry->OpenKey(locations, name, kRegistryRead, location) != kRegistryDone) return std::nullopt;
    std::optional<QString> path = ReadRegistryText(location, u"Path"_s);
    Services().registry->CloseKey(location);
    return path;
}

LocationNames ReadLocationNames(const RegistryKey& locations, const QString& reportFolder, bool showUnreadable) {
    LocationNames names;
    for (int index = 0; const std::optional<QString> name = NameAt(locations, index); ++index) {
        const QString trimmed = TrimBlanks(*name);
        if (names.largest < trimmed) names.largest = trimmed;
        if (index == 0 || names.smallest > trimmed) names.smallest = trimmed;
        const std::optional<QString> path = PathOf(locations, *name);
        if (!path && showUnreadable) Services().dialogs->ShowMessage(u"オープンできません。"_s);
        if (path && path->contains(reportFolder + kPathSeparator, Qt::CaseInsensitive)) names.found = *name;
    }
    return names;
}

/// On failure the caller does not read the existing locations, so the new one is named as if it were the first.
bool AllowNetwork(const RegistryKey& locations, const QString& reportFolder) {
    if (!reportFolder.contains(u"\\\\"_s)) return true;
    if (Services().registry->SetNumber(locations, u"AllowNetworkLocations"_s, 1) == kRegistryDone) return true;
    Services().dialogs->ShowMessage(u"書き込みできません。"_s);
    return false;
}

}  // namespace

std::optional<QString> ReadRegistryText(const RegistryKey& key, const QString& name) {
    QString buffer(kBuffer, u' ');
    int length = kBuffer;
    if (Services().registry->QueryText(key, name, buffer, length) != kRegistryDone) return std::nullopt;
    return buffer.first(qMax(0, length - 1));
}

QString NewLocationName(const LocationNames& names) {
    if (names.smallest.isEmpty()) return u"Location0"_s;
    const qint64 lowest = NumberIn(names.smallest);
    return LocationName(lowest > 0 ? lowest - 1 : NumberIn(names.largest) + 1);
}

bool OpenLocationFor(const QString& locationsKey, const QString& reportFolder, bool showUnreadable,
                     RegistryKey& location, long& closing) {
    Registry& registry = *Services().registry;
    RegistryKey locations;
    if (registry.OpenKey(UserRoot(), locationsKey, kRegistryAll, locations) != kRegistryDone &&
        registry.CreateKey(UserRoot(), locationsKey, kRegistryAll, locations) != kRegistryDone)
        return false;
    LocationNames names;
    if (AllowNetwork(locations, reportFolder)) names = ReadLocationNames(locations, reportFolder, showUnreadable);
    closing = registry.CloseKey(locations);
    const QString below = locationsKey + u'\\';
    if (!names.found.isEmpty())
        return registry.OpenKey(UserRoot(), below + names.found, kRegistryAll, location) == kRegistryDone;
    if (registry.CreateKey(UserRoot(), below + NewLocationName(names), kRegistryAll, location) == kRegistryDone)
        return true;
    Services().dialogs->ShowMessage(u"設定できません。"_s);
    return false;
}
