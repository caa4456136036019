#include "setup/storage/InstallationRights.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include "platform/FileRights.h"
#include "platform/SealedPins.h"
#include "setup/UsageError.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr long kWorkFailed = 1;
constexpr unsigned kReadFolder = 02750, kReadFile = 0640, kProgramFile = 0750;
constexpr unsigned kWriteFolder = 02770, kWriteFile = 0660;
/// Members create folders here; the sticky bit keeps them from renaming those of others.
constexpr unsigned kUsersFolder = 03770;
constexpr unsigned kGroupAndOthers = 077, kOwnerRuns = 0100;

struct ExpectedRights {
    QString path;
    platform::FileRights present;
    unsigned group;
    unsigned mode;

    bool AreMet() const { return present.group == group && present.mode == mode; }
    QString Line() const {
        const auto words = [](unsigned bits, unsigned owners) {
            return u"%1 %2"_s.arg(bits, 4, 8, QChar(u'0')).arg(platform::GroupName(owners));
        };
        return u"%1: %2 → %3"_s.arg(path, words(present.mode, present.group), words(mode, group));
    }
};

using Expectations = QList<ExpectedRights>;

void Expect(Expectations& all, const QString& path, unsigned group, unsigned folderMode, unsigned fileMode) {
    if (const std::optional<platform::FileRights> present = platform::RightsOf(path))
        all.append(
            {.path = path, .present = *present, .group = group, .mode = present->folder ? folderMode : fileMode});
}

/// Entries that members only read and execute.
void ExpectReadable(Expectations& all, const QString& folder, unsigned group) {
    Expect(all, folder, group, kReadFolder, kReadFile);
    if (!platform::RightsOf(folder)) return;
    QDirIterator inside(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (inside.hasNext()) {
        const QString path = inside.next();
        const std::optional<platform::FileRights> present = platform::RightsOf(path);
        const bool program = present && (present->mode & kOwnerRuns) != 0;
        Expect(all, path, group, kReadFolder, program ? kProgramFile : kReadFile);
    }
}

/// Files that members write. Sub-folders made by a site are excluded: a member could replace one with a symbolic link.
void ExpectWritable(Expectations& all, const QString& folder, unsigned group) {
    Expect(all, folder, group, kWriteFolder, kWriteFile);
    if (!platform::RightsOf(folder)) return;
    for (const QFileInfo& entry : QDir(folder).entryInfoList(QDir::Files | QDir::Hidden))
        Expect(all, entry.filePath(), group, kWriteFolder,
               entry.fileName() == platform::PinKeyFileName() ? kReadFile : kWriteFile);
}

/// A user's folder is accessible to that user only; its group is not changed.
void ExpectPrivate(Expectations& all, const QString& users) {
    for (const QFileInfo& entry : QDir(users).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks))
        if (const std::optional<platform::FileRights> present = platform::RightsOf(entry.filePath()))
            all.append({.path = entry.filePath(),
                        .present = *present,
                        .group = present->group,
                        .mode = present->mode & ~kGroupAndOthers});
}

/// Outer folders first: after their correction no other user can replace their entries.
Expectations ExpectedIn(const QString& root, unsigned group) {
    Expectations all;
    Expect(all, root, group, kReadFolder, kReadFile);
    for (const QString& folder : {u"/prgbin"_s, u"/host"_s, u"/manual"_s}) ExpectReadable(all, root + folder, group);
    for (const QString& folder : {u"/data"_s, u"/conf"_s, u"/report"_s}) ExpectWritable(all, root + folder, group);
    Expect(all, root + u"/users"_s, group, kUsersFolder, kReadFile);
    ExpectPrivate(all, root + u"/users"_s);
    return all;
}

Expectations NotMetIn(const QString& root, unsigned group) {
    Expectations all = ExpectedIn(QFileInfo(root).canonicalFilePath(), group);
    all.removeIf([](const ExpectedRights& expected) { return expected.AreMet(); });
    return all;
}

/// Folder whose group a new installation gets: the prepared root folder, or the nearest existing parent.
QString NamingFolder(const QString& root) {
    const std::optional<platform::FileRights> prepared = platform::RightsOf(root);
    if (prepared && (prepared->mode & platform::kSetGroupId) != 0) return root;
    QString folder = QFileInfo(root).path();
    while (!QFileInfo::exists(folder)) folder = QFileInfo(folder).path();
    return QFileInfo(folder).canonicalFilePath();
}

}  // namespace

unsigned GroupOf(const QString& root) {
    const std::optional<platform::FileRights> conf = platform::RightsOf(root + u"/conf"_s);
    const std::optional<platform::FileRights> around = platform::RightsOf(QFileInfo(root).canonicalPath());
    if (!conf) return around ? around->group : platform::OwnGroupId();
    const bool chosen = platform::PrimaryGroupOf(conf->owner).value_or(conf->group) != conf->group;
    return chosen || !around || !platform::MayGiveGroup(conf->owner, around->group) ? conf->group : around->group;
}

unsigned GroupForNew(const QString& root) {
    if (platform::RightsOf(root + u"/conf"_s)) return GroupOf(root);
    const QString naming = NamingFolder(root);
    const std::optional<platform::FileRights> rights = platform::RightsOf(naming);
    const bool inherited = rights && (rights->mode & platform::kSetGroupId) != 0;
    const bool near = naming == root || naming == QFileInfo(QFileInfo(root).path()).canonicalFilePath();
    if (rights && (inherited || near) && platform::MayGiveGroup(platform::OwnUserId(), rights->group))
        return rights->group;
    if (inherited)
        throw UsageError(u"%1 のグループ %2 に入っていないので、そのグループのインストールを作れません。"_s.arg(
            naming, platform::GroupName(rights->group)));
    return platform::OwnGroupId();
}

void SetInstallationRights(const QString& root, unsigned group) {
    for (const ExpectedRights& expected : NotMetIn(root, group))
        if (!platform::SetRights(expected.path, expected.group, expected.mode))
            throw platform::RuntimeError(kWorkFailed, expected.path + u" の権限を設定できません。"_s);
}

QStringList WrongRights(const QString& root) {
    QStringList lines;
    for (const ExpectedRights& expected : NotMetIn(root, GroupOf(root))) lines.append(expected.Line());
    return lines;
}

RightsChanges CorrectRights(const QString& root) {
    RightsChanges changes;
    for (const ExpectedRights& expected : NotMetIn(root, GroupOf(root))) {
        const bool done = platform::SetRights(expected.path, expected.group, expected.mode);
        (done ? changes.done : changes.refused).append(expected.Line());
    }
    return changes;
}

}  // namespace setup
