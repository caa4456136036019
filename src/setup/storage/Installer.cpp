#include "setup/storage/Installer.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>

#include "data/Files.h"
#include "platform/AtomicFile.h"
#include "platform/FileRights.h"
#include "platform/ScratchFolder.h"
#include "platform/SealedPins.h"
#include "setup/UsageError.h"
#include "setup/sample/Sample.h"
#include "setup/schema/DatabaseFileWriter.h"
#include "setup/storage/Installation.h"
#include "setup/storage/InstallationRights.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr long kWorkFailed = 1;

const QString kOldName = u"old"_s;
constexpr const char16_t* kFolders[] = {u"prgbin", u"data", u"conf", u"report", u"manual", u"users"};

[[noreturn]] void Fail(const QString& description) { throw platform::RuntimeError(kWorkFailed, description); }

void MakeFolders(const QString& root) {
    for (const char16_t* name : kFolders) {
        const QString path = root + u'/' + QString::fromUtf16(name);
        if (!QDir().mkdir(path)) Fail(u"フォルダ %1 を作成できません。"_s.arg(path));
    }
}

void WriteGeneral(const QString& path, const InstallationRequest& request, const platform::PinKey& key) {
    DatabaseFileWriter store(path, DatabaseKind::General);
    store.SealPinsUnder(key);
    WriteMasters(store, request.askPins);
    WriteStaff(store, {.count = request.staff, .seed = request.seed, .trialRights = request.askPins});
    WriteViewLog(store, request.staff, request.seed);
    WritePersonalRights(store, request.staff, request.seed);
    store.Commit();
}

/// Printed on envelopes as the logo of a company that has none.
void WriteBlankPicture(const QString& path) {
    QImage blank(8, 8, QImage::Format_RGB32);
    blank.fill(Qt::white);
    QBuffer picture;
    QString error;
    if (!blank.save(&picture, "JPG") || !platform::ReplaceFile(path, picture.data(), error))
        Fail(u"%1 に書き込めません。%2"_s.arg(path, error));
}

/// Always random, never derived from the seed: knowing the seed must not reveal the key.
platform::PinKey MakeKey(const QString& path) {
    const platform::PinKey key;
    if (!key.Write(path)) Fail(u"鍵ファイル %1 を作成できません。"_s.arg(path));
    return key;
}

/// Fills an empty folder. `finalRoot` is its path after the rename.
void FillInstallation(const QString& root, const QString& finalRoot, const InstallationRequest& request) {
    const auto file = [&](const QString& name) { return u'/' + DesktopFileName(name, request.kind); };
    MakeFolders(root);
    const QString general = root + u"/data"_s + file(u"gnrdb"_s);
    WriteGeneral(general, request, MakeKey(root + u"/conf/"_s + platform::PinKeyFileName()));
    const QString configuration = root + u"/conf"_s + file(u"usrcnfg"_s),
                  report = root + u"/report"_s + file(u"repdb"_s);
    WriteConfiguration(configuration, {.generalFile = finalRoot + u"/data"_s + file(u"gnrdb"_s),
                                       .kind = request.kind,
                                       .installKind = request.installKind,
                                       .signedIn = !request.askPins});
    const QString templates = root + u"/report"_s + file(u"repfrmdb"_s);
    DatabaseFileWriter(report, DatabaseKind::Report).Commit();
    WriteStandardTemplates(templates, finalRoot + u"/report"_s + file(u"repdb"_s));
    WriteBlankPicture(root + u"/prgbin/空白.jpg"_s);
    WriteManual(root + u"/manual/要員名簿照会.doc"_s);
    InstallPrograms(request.programFolder, root);
}

void CheckRequest(const QString& root, const InstallationRequest& request) {
    const QFileInfo place(root);
    // The programs find their root by the first "prgbin" or "prgsrc" in their path.
    if (root.contains(u"prgbin"_s, Qt::CaseInsensitive) || root.contains(u"prgsrc"_s, Qt::CaseInsensitive))
        throw UsageError(u"%1 は使えません。パスに prgbin または prgsrc を含めないでください。"_s.arg(root));
    // The path is inserted into connection strings unquoted.
    if (root.contains(u';') || root.contains(u'"'))
        throw UsageError(u"%1 は使えません。パスに「;」や「\"」を含めないでください。"_s.arg(root));
    if (place.exists() && !place.isDir()) throw UsageError(u"%1 はフォルダではありません。"_s.arg(root));
    if (HoldsInstallation(root)) {
        if (request.replace) return;
        throw UsageError(u"%1 には既にインストールがあります。作り直すときは --replace を付けてください。"_s.arg(root));
    }
    if (place.exists() && !QDir(root).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot))
        throw UsageError(u"%1 は空のフォルダではなく、インストールでもありません。"_s.arg(root));
}

void Move(const QString& from, const QString& to) {
    if (!QDir().rename(from, to)) Fail(u"%1 を %2 に移動できません。"_s.arg(from, to));
}

/// Moves the finished folder to its target. An existing installation is removed with the work folder.
void PutInPlace(const QString& built, const QString& root, platform::ScratchFolder& work) {
    const QString old = work.FilePath(kOldName);
    const bool replacing = HoldsInstallation(root);
    if (replacing)
        Move(root, old);
    else if (QFileInfo::exists(root) && !QDir().rmdir(root))
        Fail(u"フォルダ %1 を置き換えられません。"_s.arg(root));
    try {
        Move(built, root);
    } catch (const platform::RuntimeError&) {
        // If the old one can't be moved back, keep the work folder that contains it.
        if (replacing && !QDir().rename(old, root)) work.Keep();
        throw;
    }
}

/// Removes the work folders of killed runs. A run that was killed between the two renames of a replacement left the
/// only copy of an installation there, which is moved back first.
void RemoveLeftovers(const QString& parent) {
    for (const platform::ScratchLeftover& leftover : platform::ScratchLeftovers(parent, kWorkFolderPrefix)) {
        if (leftover.owner != platform::OwnUserId()) continue;
        const QString old = leftover.path + u'/' + kOldName, root = QString::fromUtf8(leftover.note);
        const bool onlyCopy = HoldsInstallation(old) && !HoldsInstallation(root);
        const bool mayGoBack =
            QFileInfo(QFileInfo(root).path()).canonicalFilePath() == QFileInfo(parent).canonicalFilePath();
        if (onlyCopy && !(mayGoBack && QDir().rename(old, root))) continue;
        platform::RemoveScratchLeftover(leftover);
    }
}

}  // namespace

QString MakeInstallation(const InstallationRequest& request) {
    const QFileInfo asked(request.folder);
    // Resolve a symbolic link to its folder: the link must survive a replacement.
    const QString root = QDir::cleanPath(asked.exists() ? asked.canonicalFilePath() : asked.absoluteFilePath());
    const QString parent = QFileInfo(root).path();
    RemoveLeftovers(parent);
    CheckRequest(root, request);
    const unsigned group = GroupForNew(root);
    if (!QDir().mkpath(parent)) Fail(u"フォルダ %1 を作成できません。"_s.arg(parent));
    // In the parent folder, so that the final rename is atomic (same file system).
    platform::ScratchFolder work(parent, kWorkFolderPrefix, root.toUtf8());
    if (!work.IsValid()) Fail(u"フォルダ %1 に書き込めません。%2"_s.arg(parent, work.Error()));
    const QString built = work.FilePath(u"new"_s);
    if (!QDir().mkdir(built)) Fail(u"フォルダ %1 を作成できません。"_s.arg(built));
    FillInstallation(built, root, request);
    SetInstallationRights(built, group);
    PutInPlace(built, root, work);
    return root;
}

}  // namespace setup
