// Part of Verbs.h: the verb `check`.
#include "setup/commands/Verbs.h"

#include <QFileInfo>

#include "platform/FileRights.h"
#include "platform/RuntimeError.h"
#include "setup/UsageError.h"
#include "setup/checks/Checks.h"
#include "setup/storage/Installation.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr long kWorkFailed = 1;

void CheckCommon(const CheckScope& scope, CheckReport& report, bool onlyRights) {
    for (const CommonCheck& check : CommonChecks())
        if (!onlyRights || check.perUser) RunCheck(report, check.subject, [&] { check.run(scope, report); });
}

/// Private copies have the same file format as the common files, whatever else is in the folder.
QString OwnFile(const QString& folder, const QString& common) { return folder + u'/' + QFileInfo(common).fileName(); }

void CheckOwnConfiguration(const CheckScope& scope, CheckReport& report, const QString& file) {
    DatabaseSubject subject = SubjectOf(scope, DatabaseKind::Configuration);
    subject.remedy = u"次を実行し、この利用者がプログラムを起動してください（共通のものから複写されます）。"_s;
    subject.commands = {u"rm -f -- "_s + ShellWord(file)};
    if (!CheckDatabase(scope, report, file, subject)) return;
    CheckContent(scope, report, file, subject);
    CheckWritable(scope, report, file, subject);
    RunCheck(report, subject.name, [&] { CheckConfigurationRows(scope, report, file); });
    RunCheck(report, subject.name, [&] { CheckClock(scope, report, file); });
}

void CheckPrivate(const CheckScope& scope, CheckReport& report, const FilePlaces& places) {
    CheckOwnConfiguration(scope, report, OwnFile(places.conf, scope.configuration));
    const QString common = WorkTablesIn(CommonPlaces(scope.root).report);
    CheckReports(scope, report, OwnFile(places.report, common), places.user, true);
    RunCheck(report, u"帳票ホスト"_s, [&] { CheckTrust(report, scope.user, places.report); });
}

void CheckPrivateFolder(const CheckScope& scope, CheckReport& report, const FilePlaces& places,
                        const Console& console) {
    const QString users = scope.root + u"/users"_s, own = users + u'/' + places.user;
    const QString effect = u"起動すると「データベースが使用できません。」と出て終わります。"_s;
    const QStringList faults = platform::PrivateFolderFaults(own, scope.user.Id());
    for (const QString& fault : faults)
        report.Add({.what = fault,
                    .effect = effect,
                    .remedy =
                        u"置いた人と理由を確かめて取り除くか、持ち主が違うだけなら chown -R で利用者のものに戻して"
                        u"ください。"_s});
    if (!faults.isEmpty()) return;
    if (QFileInfo(own).isDir()) return CheckPrivate(scope, report, places);
    console.out << u"この利用者のファイルはまだありません。最初の起動で作られます。\n"_s;
    if (QFileInfo(users).isDir() && !scope.user.MayMakeFilesIn(users))
        report.Add({.what = u"利用者 %1 にフォルダ %2 に書き込む権限がないので、ファイルを作れません。"_s.arg(
                        places.user, users),
                    .effect = effect,
                    .remedy = u"利用者をインストールのグループに加え、次を所有者か root が実行してください。"_s,
                    .commands = {ToolCommand(u"upgrade"_s, scope.root)}});
}

/// The private copies of one user; `everything`: also the rights of that user to the common files.
void CheckUser(CheckScope& scope, CheckReport& report, const FilePlaces& places, bool everything,
               const Console& console) {
    console.out << u"利用者 %1\n"_s.arg(places.user);
    if (!MayEnter(places)) {
        console.out << u"この利用者だけのフォルダなので、調べられません。root で実行してください。\n"_s;
        return;
    }
    scope.user = UserAccess(places.user);
    if (everything) CheckCommon(scope, report, true);
    CheckPrivateFolder(scope, report, places, console);
}

QList<FilePlaces> ChosenPlaces(const QString& root, const Arguments& arguments) {
    if (const QString name = arguments.Value(option::kUser); !name.isEmpty()) return {PlacesOf(root, name)};
    return arguments.Has(option::kAllUsers) ? AllPrivatePlacesToChange(root) : AllPrivatePlaces(root);
}

/// Unlike a failed check, a check that could not begin changes nothing of what is known about the installation.
QList<FilePlaces> PlacesToCheck(const QString& root, const Arguments& arguments) {
    try {
        return ChosenPlaces(root, arguments);
    } catch (const platform::RuntimeError& error) {
        throw UsageError(error.Description());
    }
}

}  // namespace

void CheckInstallation(const Arguments& arguments, const Console& console) {
    const QString root = InstallationRoot(arguments.Installation()), name = arguments.Value(option::kUser);
    if (!name.isEmpty() && arguments.Has(option::kAllUsers))
        throw UsageError(u"--user と --all-users は一緒に指定できません。"_s);
    if (!name.isEmpty()) RequireUser(root, name);
    const QList<FilePlaces> places = PlacesToCheck(root, arguments);
    CheckReport report(console.out);
    CheckScope scope = ScopeOf(root, name);
    if (!scope.user.IsKnown())
        console.out << u"利用者 %1 はこのコンピューターにいないので、実行者の権限で調べます。\n"_s.arg(name);
    CheckCommon(scope, report, false);
    if (scope.HasPrivateCopies())
        for (const FilePlaces& one : places) CheckUser(scope, report, one, arguments.Has(option::kAllUsers), console);
    console.out.flush();
    if (report.Count() > 0) throw platform::RuntimeError(kWorkFailed, u"問題が %1 件あります。"_s.arg(report.Count()));
    console.out << u"問題はありません。\n"_s;
}

}  // namespace setup
