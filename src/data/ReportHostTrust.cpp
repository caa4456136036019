#include "data/ReportHostTrust.h"

#include <optional>

#include "globals/ProgramGlobals.h"
#include "platform/Services.h"

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

const QString kAssociationKey = u"Software\\Microsoft\\Windows\\CurrentVersion\\Extensions"_s;
const QString kOldSecurityKey = u"Software\\Microsoft\\Office\\11.0\\Access\\Security"_s;

/// The setting that a host version requires. OFFICE17 reads the settings of 16.0 like OFFICE16, only OFFICE18 uses
/// 17.0. There is no version 13.
enum class Need { Association, SecurityLevel, Location };
struct HostVersion {
    QStringView word, mixedWord;  ///< spellings in the host's folder; case-sensitive
    Need need;
    QStringView version;
};
constexpr HostVersion kVersions[] = {
    {u"OFFICE9", u"Office9", Need::Association, {}},     {u"OFFICE10", u"Office10", Need::Association, {}},
    {u"OFFICE11", u"Office11", Need::SecurityLevel, {}}, {u"OFFICE12", u"Office12", Need::Location, u"12.0"},
    {u"OFFICE14", u"Office14", Need::Location, u"14.0"}, {u"OFFICE15", u"Office15", Need::Location, u"15.0"},
    {u"OFFICE16", u"Office16", Need::Location, u"16.0"}, {u"OFFICE17", u"Office17", Need::Location, u"16.0"},
    {u"OFFICE18", u"Office18", Need::Location, u"17.0"},
};

const HostVersion* VersionOf(const QString& hostFolder) {
    for (const HostVersion& row : kVersions)
        if (hostFolder.contains(row.word) || hostFolder.contains(row.mixedWord)) return &row;
    return nullptr;
}

void ShowWriteFailure() { Services().dialogs->ShowMessage(u"書き込みできません。"_s); }

bool MakeSettings(const QString& hostFolder) {
    const HostVersion* row = VersionOf(hostFolder);
    if (row == nullptr) return false;
    switch (row->need) {
        case Need::SecurityLevel:
            return SetOldSecurityLevel(hostFolder);
        case Need::Location:
            return TrustReportFolder(hostFolder, Globals().Layout.UserReportFolder, row->version.toString());
        default:
            return SetHostAssociation(hostFolder);
    }
}

}  // namespace

bool PrepareReportHost() {
    RegistryKey key;
    if (Services().registry->OpenKey(MachineRoot(), kReportHostKey, kRegistryRead, key) != kRegistryDone) return false;
    bool made = false;
    if (const std::optional<QString> folder = ReadRegistryText(key, u"Path"_s)) {
        Globals().DiscoveredHostFolder = *folder;
        made = MakeSettings(*folder);
    }
    Services().registry->CloseKey(key);
    return made;
}

bool SetHostAssociation(const QString& hostFolder) {
    Registry& registry = *Services().registry;
    RegistryKey key;
    if (registry.OpenKey(UserRoot(), kAssociationKey, kRegistryAll, key) != kRegistryDone) return false;
    const QString program = hostFolder + kReportHostProgram;
    if (ReadRegistryText(key, u"mdb"_s).value_or(QString()) != program &&
        registry.SetText(key, u"mdb"_s, program, TwoByteLength(program)) != kRegistryDone)
        ShowWriteFailure();
    registry.CloseKey(key);
    return true;
}

bool SetOldSecurityLevel(const QString& hostFolder) {
    const bool associated = SetHostAssociation(hostFolder);
    Registry& registry = *Services().registry;
    RegistryKey key;
    if (registry.CreateKey(UserRoot(), kOldSecurityKey, kRegistryAll, key) != kRegistryDone) return associated;
    if (registry.SetNumber(key, u"Level"_s, 1) != kRegistryDone) ShowWriteFailure();
    registry.CloseKey(key);
    return true;
}

// The status checked after each of the two writes is that of closing the list of locations, as it always was: a failed
// write of a value is not reported, and the result is true.
bool TrustReportFolder(const QString& hostFolder, const QString& reportFolder, const QString& version) {
    const bool associated = SetHostAssociation(hostFolder);
    Registry& registry = *Services().registry;
    const QString path = reportFolder + kPathSeparator;
    RegistryKey location;
    long closing = kRegistryDone;
    if (!OpenLocationFor(TrustedLocationsKey(version), reportFolder, version == u"14.0"_s, location, closing))
        return associated;
    registry.SetText(location, u"Path"_s, path, TwoByteLength(path));
    if (closing != kRegistryDone) ShowWriteFailure();
    registry.SetNumber(location, u"AllowSubfolder"_s, 1);
    if (closing != kRegistryDone) ShowWriteFailure();
    registry.CloseKey(location);
    return true;
}

QString TrustedLocationsKey(const QString& version) {
    return u"Software\\Microsoft\\Office\\"_s + version + u"\\Access\\Security\\Trusted Locations"_s;
}

bool IsKnownHost(const QString& hostFolder) { return VersionOf(hostFolder) != nullptr; }

QString TrustVersionOf(const QString& hostFolder) {
    const HostVersion* row = VersionOf(hostFolder);
    return row == nullptr ? QString() : row->version.toString();
}
