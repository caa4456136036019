#include "data/ReportHostTrust.h"

#include <gtest/gtest.h>

#include "globals/ProgramGlobals.h"
#include "support/FakeRegistry.h"
#include "support/FileBytes.h"
#include "support/TestServices.h"

using namespace Qt::StringLiterals;

namespace {

const QString kFolder = u"/suite/users/tester/report"_s;
const QString kHost = u"/opt/host/OFFICE16/"_s;
const QString kWriteFailure = u"書き込みできません。"_s;

class ReportHostTrust : public testing::Test {
  protected:
    ReportHostTrust() { Globals().Layout.UserReportFolder = kFolder; }

    bool PrepareFor(const QString& hostFolder) {
        registry.GiveHost(hostFolder);
        return PrepareReportHost();
    }
    bool Trust(const QString& version = u"16.0"_s) { return TrustReportFolder(kHost, kFolder, version); }
    void GiveLocation(const QString& name, const QString& path, const QString& version = u"16.0"_s) {
        registry.Give(LocationsOf(version) + u'\\' + name, u"Path"_s, path);
    }
    /// "name=path" of each location.
    QStringList Locations(const QString& version = u"16.0"_s) {
        QStringList lines;
        for (const QString& name : registry.Subkeys(LocationsOf(version)))
            lines.append(name + u'=' + registry.Text(LocationsOf(version) + u'\\' + name, u"Path"_s));
        return lines;
    }

    TestServices services;
    FakeRegistry& registry = UseStandInRegistry();
};

struct VersionCase {
    const char* name;
    QString hostFolder;
    bool result;
    bool associated;
    int level;
    QString version;  ///< whose locations contain the folder; empty if none
};
void PrintTo(const VersionCase& row, std::ostream* out) { *out << row.name; }

class HostVersions : public ReportHostTrust, public testing::WithParamInterface<VersionCase> {};

const VersionCase kVersionCases[] = {
    {"Office9", u"/h/OFFICE9/"_s, true, true, -1, {}},
    {"Office10", u"/h/Office10/"_s, true, true, -1, {}},
    {"Office11", u"/h/OFFICE11/"_s, true, true, 1, {}},
    {"Office12", u"/h/Office12/"_s, true, true, -1, u"12.0"_s},
    {"NoOffice13", u"/h/OFFICE13/"_s, false, false, -1, {}},
    {"Office14", u"/h/OFFICE14/"_s, true, true, -1, u"14.0"_s},
    {"Office15", u"/h/OFFICE15/"_s, true, true, -1, u"15.0"_s},
    {"Office16", u"/h/Office16/"_s, true, true, -1, u"16.0"_s},
    {"Office17WritesUnder16", u"/h/OFFICE17/"_s, true, true, -1, u"16.0"_s},
    {"Office18WritesUnder17", u"/h/OFFICE18/"_s, true, true, -1, u"17.0"_s},
    {"FirstRowOfTheTableDecides", u"/OFFICE18/x/OFFICE12/"_s, true, true, -1, u"12.0"_s},
    {"OtherCaseIsNoWord", u"/h/office16/"_s, false, false, -1, {}},
    {"NoWord", u"/h/host/"_s, false, false, -1, {}},
};

struct NameCase {
    const char* name;
    QStringList before;
    QString made;
};
void PrintTo(const NameCase& row, std::ostream* out) { *out << row.name; }

class NewLocations : public ReportHostTrust, public testing::WithParamInterface<NameCase> {};

QStringList Numbered(int from, int to) {
    QStringList names;
    for (int number = from; number <= to; ++number) names.append(u"Location%1"_s.arg(number));
    return names;
}

const NameCase kNameCases[] = {
    {"NoneGivesZero", {}, u"Location0"_s},
    {"OneAndTwoGiveNoDigitsAtAll", Numbered(1, 2), u"Location"_s},
    {"ThreeAndFourGiveTwo", Numbered(3, 4), u"Location2"_s},
    {"ZeroAndOneGiveTwo", Numbered(0, 1), u"Location2"_s},
    {"ZeroToTenOverwriteTenByTextOrder", Numbered(0, 10), u"Location10"_s},
    {"HundredFromZeroGiveTheNextOne", Numbered(0, 99), u"Location100"_s},
    {"HundredFromOneGiveNoDigits", Numbered(1, 100), u"Location"_s},
    {"WithoutDigitsCountsAsZero", {u"Location"_s, u"Location1"_s}, u"Location2"_s},
    {"TwelveAloneGivesEleven", {u"Location12"_s}, u"Location11"_s},
    {"OtherNamesCountByTheirNinthSign", {u"AllowFoo5x"_s}, u"Location4"_s},
    {"HighestNumberGivesTheNextOne", {u"Location0"_s, u"Location2147483647"_s}, u"Location2147483648"_s},
    {"ShortNameIsZero", {u"abc"_s}, u"Location1"_s},
};

struct MatchCase {
    const char* name;
    QString path;
    bool found;
};
void PrintTo(const MatchCase& row, std::ostream* out) { *out << row.name; }

class LocationMatches : public ReportHostTrust, public testing::WithParamInterface<MatchCase> {};

const MatchCase kMatchCases[] = {
    {"Same", kFolder + u'/', true},
    {"AnotherCase", kFolder.toUpper() + u'/', true},
    {"OnlyBegins", kFolder + u"/deep/er/"_s, true},
    {"DeepInside", u"file:///x"_s + kFolder + u"/y"_s, true},
    {"WithoutSeparator", kFolder, false},
    {"LongerName", kFolder + u"2/"_s, false},
    {"TooLongToRead", kFolder + u'/' + QString(256, u'x'), false},
};

template <typename Case>
std::string NameOf(const testing::TestParamInfo<Case>& info) {
    return info.param.name;
}

}  // namespace

TEST_P(HostVersions, GetTheirSettings) {
    registry.Give(kAssociations);
    const VersionCase& row = GetParam();
    EXPECT_EQ(PrepareFor(row.hostFolder), row.result);
    EXPECT_EQ(Globals().DiscoveredHostFolder, row.hostFolder);
    EXPECT_EQ(registry.Text(kAssociations, u"mdb"_s),
              row.associated ? row.hostFolder + u"MSACCESS.EXE"_s : u"(none)"_s);
    EXPECT_EQ(registry.Number(u"Software\\Microsoft\\Office\\11.0\\Access\\Security"_s, u"Level"_s), row.level);
    for (const QString& version : {u"12.0"_s, u"13.0"_s, u"14.0"_s, u"15.0"_s, u"16.0"_s, u"17.0"_s, u"18.0"_s}) {
        const QString location = LocationsOf(version) + u"\\Location0"_s;
        EXPECT_EQ(registry.Text(location, u"Path"_s), version == row.version ? kFolder + u'/' : u"(none)"_s);
        EXPECT_EQ(registry.Number(location, u"AllowSubfolder"_s), version == row.version ? 1 : -1);
    }
    EXPECT_EQ(services.dialogs.Texts(), QStringList());
}
INSTANTIATE_TEST_SUITE_P(Table, HostVersions, testing::ValuesIn(kVersionCases), NameOf<VersionCase>);

TEST_P(NewLocations, AreNumberedByTextOrder) {
    for (const QString& name : GetParam().before) GiveLocation(name, u"/elsewhere/"_s);
    EXPECT_TRUE(Trust());
    QStringList expected;
    for (const QString& name : GetParam().before)
        if (name != GetParam().made) expected.append(name + u"=/elsewhere/"_s);
    expected.append(GetParam().made + u'=' + kFolder + u'/');
    QStringList locations = Locations();
    expected.sort();
    locations.sort();
    EXPECT_EQ(locations, expected);
}
INSTANTIATE_TEST_SUITE_P(Table, NewLocations, testing::ValuesIn(kNameCases), NameOf<NameCase>);

TEST_P(LocationMatches, AreReusedAndWrittenAgain) {
    GiveLocation(u"Location0"_s, GetParam().path);
    EXPECT_TRUE(Trust());
    const QStringList made{u"Location1="_s + kFolder + u'/'};
    EXPECT_EQ(Locations(), GetParam().found ? QStringList{u"Location0="_s + kFolder + u'/'}
                                            : QStringList{u"Location0="_s + GetParam().path} + made);
}
INSTANTIATE_TEST_SUITE_P(Table, LocationMatches, testing::ValuesIn(kMatchCases), NameOf<MatchCase>);

TEST_F(ReportHostTrust, LaterMatchReplacesAnEarlierOne) {
    GiveLocation(u"Location1"_s, kFolder + u"/a"_s);
    GiveLocation(u"Location2"_s, kFolder + u"/b"_s);
    EXPECT_TRUE(Trust());
    EXPECT_EQ(Locations(), QStringList({u"Location1="_s + kFolder + u"/a"_s, u"Location2="_s + kFolder + u'/'}));
}

TEST_F(ReportHostTrust, WithoutARegisteredHostNothingIsWritten) {
    EXPECT_FALSE(PrepareReportHost());
    EXPECT_EQ(Globals().DiscoveredHostFolder, QString());
    EXPECT_EQ(registry.writes, QStringList());
}

TEST_F(ReportHostTrust, HostFolderThatDoesNotFitTheBufferIsNoHost) {
    EXPECT_FALSE(PrepareFor(QString(300, u'x') + u"OFFICE16/"_s));
    EXPECT_EQ(Globals().DiscoveredHostFolder, QString());
}

TEST_F(ReportHostTrust, HostWithoutAVersionWordWritesNothing) {
    registry.Give(kAssociations);
    const QByteArray before = ReadBytes(registry.UserFile());
    EXPECT_FALSE(PrepareFor(u"/h/host/"_s));
    EXPECT_EQ(registry.writes, QStringList());
    EXPECT_EQ(ReadBytes(registry.UserFile()), before) << "no key either";
}

TEST_F(ReportHostTrust, AssociationIsNotMadeWhereNoneAreKept) {
    EXPECT_FALSE(SetHostAssociation(kHost));
    EXPECT_TRUE(Trust());
    EXPECT_EQ(registry.Text(kAssociations, u"mdb"_s), u"(none)"_s);
}

TEST_F(ReportHostTrust, AssociationThatExistsIsNotWrittenAgain) {
    registry.Give(kAssociations, u"mdb"_s, kHost + u"MSACCESS.EXE"_s);
    EXPECT_TRUE(SetHostAssociation(kHost));
    EXPECT_EQ(registry.writes, QStringList());
    EXPECT_TRUE(SetHostAssociation(u"/other/"_s));
    EXPECT_EQ(registry.Text(kAssociations, u"mdb"_s), u"/other/MSACCESS.EXE"_s);
}

TEST_F(ReportHostTrust, AssociationThatCantBeWrittenIsReportedAndCountsAsMade) {
    registry.Give(kAssociations);
    registry.refusedValues = {u"mdb"_s};
    EXPECT_TRUE(SetHostAssociation(kHost));
    EXPECT_EQ(services.dialogs.Texts(), QStringList{kWriteFailure});
}

TEST_F(ReportHostTrust, SecurityLevelThatCantBeWrittenIsReported) {
    registry.refusedValues = {u"Level"_s};
    EXPECT_TRUE(SetOldSecurityLevel(kHost));
    EXPECT_EQ(services.dialogs.Texts(), QStringList{kWriteFailure});
}

TEST_F(ReportHostTrust, EarlyFailureGivesTheResultOfTheAssociation) {
    registry.refusedKeys = {u"Security"_s, u"Trusted Locations"_s};
    EXPECT_FALSE(SetOldSecurityLevel(kHost));
    EXPECT_FALSE(Trust());
    registry.Give(kAssociations);
    EXPECT_TRUE(SetOldSecurityLevel(kHost));
    EXPECT_TRUE(Trust());
    EXPECT_EQ(services.dialogs.Texts(), QStringList());
}

TEST_F(ReportHostTrust, FolderOnADriveLeavesNetworkLocationsAlone) {
    EXPECT_TRUE(TrustReportFolder(kHost, u"C:\\suite\\report"_s, u"16.0"_s));
    EXPECT_TRUE(Trust());
    EXPECT_EQ(registry.Number(LocationsOf(u"16.0"_s), u"AllowNetworkLocations"_s), -1);
}

TEST_F(ReportHostTrust, FolderOnANetworkAllowsNetworkLocations) {
    GiveLocation(u"Location5"_s, u"/elsewhere/"_s);
    EXPECT_TRUE(TrustReportFolder(kHost, u"\\\\server\\suite"_s, u"16.0"_s));
    EXPECT_EQ(registry.Number(LocationsOf(u"16.0"_s), u"AllowNetworkLocations"_s), 1);
    EXPECT_EQ(registry.Text(LocationsOf(u"16.0"_s) + u"\\Location4"_s, u"Path"_s), u"\\\\server\\suite/"_s);
}

TEST_F(ReportHostTrust, FailedNetworkPermissionLeadsToLocationZeroWhateverIsThere) {
    const QString network = u"\\\\server\\suite"_s;
    GiveLocation(u"Location0"_s, u"/elsewhere/"_s);
    GiveLocation(u"Location5"_s, network + u'/');
    registry.refusedValues = {u"AllowNetworkLocations"_s};
    EXPECT_TRUE(TrustReportFolder(kHost, network, u"16.0"_s));
    EXPECT_EQ(services.dialogs.Texts(), QStringList{kWriteFailure});
    EXPECT_EQ(Locations(), QStringList({u"Location0="_s + network + u'/', u"Location5="_s + network + u'/'}));
}

TEST_F(ReportHostTrust, FoundLocationThatCantBeOpenedStopsWithTheAssociation) {
    GiveLocation(u"Location3"_s, kFolder + u'/');
    registry.readOnlyKeys = {u"Location3"_s};
    EXPECT_FALSE(Trust());
    registry.Give(kAssociations, u"mdb"_s, kHost + u"MSACCESS.EXE"_s);
    EXPECT_TRUE(Trust());
    EXPECT_EQ(registry.writes, QStringList());
    EXPECT_EQ(Locations(), QStringList{u"Location3="_s + kFolder + u'/'});
    EXPECT_EQ(services.dialogs.Texts(), QStringList());
}

TEST_F(ReportHostTrust, NewLocationThatCantBeMadeIsReportedAndStops) {
    registry.unmakableKeys = {u"Location0"_s};
    EXPECT_FALSE(Trust());
    EXPECT_EQ(services.dialogs.Texts(), QStringList{u"設定できません。"_s});
    EXPECT_EQ(registry.writes, QStringList());
}

TEST_F(ReportHostTrust, NoStepReadsTheStatusOfTheTwoWrites) {
    registry.refusedValues = {u"Path"_s, u"AllowSubfolder"_s};
    EXPECT_TRUE(Trust());
    EXPECT_EQ(registry.writes, QStringList({u"Location0 Path"_s, u"Location0 AllowSubfolder"_s}));
    EXPECT_EQ(services.dialogs.Texts(), QStringList());
}

TEST_F(ReportHostTrust, FailedClosingOfTheListIsReportedAtEachOfTheTwoWrites) {
    registry.refusedCloses = {u"Trusted Locations"_s};
    EXPECT_TRUE(Trust());
    EXPECT_EQ(services.dialogs.Texts(), QStringList({kWriteFailure, kWriteFailure}));
    EXPECT_EQ(Locations(), QStringList{u"Location0="_s + kFolder + u'/'});
}

TEST_F(ReportHostTrust, OnlyVersion14TellsOfLocationsThatCantBeRead) {
    for (const QString& version : {u"12.0"_s, u"14.0"_s, u"15.0"_s, u"16.0"_s, u"17.0"_s}) {
        registry.Give(LocationsOf(version) + u"\\Location3"_s);
        registry.Give(LocationsOf(version) + u"\\Location4"_s);
        GiveLocation(u"Location5"_s, kFolder + u'/', version);
        services.dialogs.shown.clear();
        EXPECT_TRUE(Trust(version));
        EXPECT_EQ(services.dialogs.Texts(),
                  version == u"14.0"_s ? QStringList(2, u"オープンできません。"_s) : QStringList());
        EXPECT_EQ(registry.Number(LocationsOf(version) + u"\\Location5"_s, u"AllowSubfolder"_s), 1);
    }
}

TEST_F(ReportHostTrust, BrokenRegistryIsNoHostAndStaysAsItIs) {
    registry.GiveHost(kHost);
    WriteBytes(registry.UserFile(), "[Software\n");
    EXPECT_FALSE(PrepareReportHost());
    EXPECT_EQ(ReadBytes(registry.UserFile()), "[Software\n");
    EXPECT_EQ(services.dialogs.Texts(), QStringList());
}

TEST_F(ReportHostTrust, ReadOnlyRegistryIsNoHost) {
    registry.GiveHost(kHost);
    registry.refusedKeys = {u"Extensions"_s, u"Trusted Locations"_s};
    EXPECT_FALSE(PrepareReportHost());
    EXPECT_EQ(registry.writes, QStringList());
}
