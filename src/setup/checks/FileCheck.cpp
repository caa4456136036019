// Part of Checks.h: the checks of folders, programs, modes and disk space.
#include <QFileInfo>
#include <QStorageInfo>

#include "platform/SealedPins.h"
#include "setup/checks/Checks.h"
#include "setup/storage/Installation.h"
#include "setup/storage/InstallationRights.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

const QString kNoDatabase = u"起動すると「データベースが使用できません。」と出て終わります。"_s;
const QString kNoManual = u"マニュアルのボタンを押しても何も開きません。"_s;
const QString kRestore = u"バックアップから戻してください。"_s;

struct Folder {
    QString name;
    QString effect;
    QString verb;  ///< that creates it; empty: only a backup has its content
};

QList<Folder> FoldersOf(const CheckScope& scope) {
    QList<Folder> folders{
        {u"prgbin"_s, u"プログラムを起動できません。"_s, u"upgrade"_s},
        {u"data"_s, kNoDatabase, {}},
        {u"conf"_s, kNoDatabase, {}},
        {u"report"_s, u"印刷やテキスト出力をすると「帳票が使用できません。」と出ます。"_s, u"repair"_s},
        {u"manual"_s, kNoManual, u"repair"_s}};
    if (scope.HasPrivateCopies()) folders.append({u"users"_s, kNoDatabase, u"repair"_s});
    return folders;
}

/// Without the general database in its folder a missing folder `data` does no harm.
bool IsNeeded(const CheckScope& scope, const QString& name) { return name != u"data"_s || scope.general == nullptr; }

Finding MissingFolder(const CheckScope& scope, const Folder& folder) {
    Finding finding{.what = u"フォルダ %1 がありません。"_s.arg(scope.root + u'/' + folder.name),
                    .effect = folder.effect};
    if (folder.verb.isEmpty())
        finding.remedy = kRestore;
    else
        finding.commands = {ToolCommand(folder.verb, scope.root)};
    return finding;
}

void CheckProgram(const CheckScope& scope, CheckReport& report, const QString& name, const QString& effect) {
    const QString path = scope.root + u"/prgbin/"_s + name;
    const QString subject = u"プログラム %1 "_s.arg(path);
    const QStringList upgrade{ToolCommand(u"upgrade"_s, scope.root)};
    if (!QFileInfo(path).isFile())
        report.Add({.what = subject + u"がありません。"_s, .effect = effect, .commands = upgrade});
    else if (!scope.user.MayRead(path))
        report.Add({.what = subject + u"を読む権限がありません。"_s,
                    .effect = effect,
                    .remedy = u"利用者をインストールのグループに加え、次を所有者か root が実行してください。"_s,
                    .commands = upgrade});
    else if (!scope.user.MayRun(path))
        report.Add({.what = subject + u"を起動する権限がありません。"_s,
                    .effect = effect,
                    .commands = {u"chmod 0750 "_s + ShellWord(path)}});
}

void CheckKeyFile(const CheckScope& scope, CheckReport& report) {
    const QString key = CommonPlaces(scope.root).conf + u'/' + platform::PinKeyFileName();
    // Sites that store PINs in clear text have none.
    if (!QFileInfo::exists(key) || scope.user.MayRead(key)) return;
    report.Add({.what = u"暗証番号の鍵ファイル %1 を読む権限がありません。"_s.arg(key),
                .effect = u"暗証番号を入力しても「暗証番号が違います。」と出ます。"_s,
                .remedy = u"利用者をインストールのグループに加え、次を所有者か root が実行してください。"_s,
                .commands = {ToolCommand(u"upgrade"_s, scope.root)}});
}

}  // namespace

void CheckPlace(const CheckScope& scope, CheckReport& report) {
    // The path is inserted into connection strings unquoted, and the programs look for the first marker in it.
    for (const QString& part : {u";"_s, u"\""_s, u"prgbin"_s, u"prgsrc"_s})
        if (scope.root.contains(part, Qt::CaseInsensitive))
            report.Add({.what = u"インストールのパス %1 に「%2」が含まれています。"_s.arg(scope.root, part),
                        .effect = kNoDatabase,
                        .remedy = u"フォルダを別の名前に変え、そのフォルダに suite-setup move を実行してください。"_s});
    for (const Folder& folder : FoldersOf(scope))
        if (!QFileInfo(scope.root + u'/' + folder.name).isDir() && IsNeeded(scope, folder.name))
            report.Add(MissingFolder(scope, folder));
}

void CheckGenerations(const CheckScope& scope, CheckReport& report) {
    const FilePlaces common = CommonPlaces(scope.root);
    for (const QString& file : {common.conf + u"/usrcnfg"_s, common.report + u"/repdb"_s}) {
        const QString used = file + u".accdb"_s, unused = file + u".mdb"_s;
        if (QFileInfo(used).isFile() && QFileInfo(unused).isFile())
            report.Add({.what = u"%1 と %2 の両方があります。"_s.arg(used, unused),
                        .effect = u"%1 は使われず、中の設定や行は効きません。"_s.arg(unused),
                        .remedy = u"どちらが要るか確かめてください。上の方だけが要るなら、次を実行してください。"_s,
                        .commands = {u"mv %1 %2"_s.arg(ShellWord(unused), ShellWord(unused + u".unused"_s))}});
    }
}

void CheckPrograms(const CheckScope& scope, CheckReport& report) {
    CheckProgram(scope, report, u"要員名簿照会"_s, u"プログラムを起動できません。"_s);
    CheckProgram(scope, report, u"要員台帳更新"_s, u"一覧の行を押すと「情報登録プログラムが有りません」と出ます。"_s);
    const QString manual = scope.root + u"/manual/要員名簿照会.doc"_s;
    if (QFileInfo(scope.root + u"/manual"_s).isDir() && !QFileInfo(manual).isFile())
        report.Add({.what = u"マニュアル %1 がありません。"_s.arg(manual),
                    .effect = kNoManual,
                    .commands = {ToolCommand(u"repair"_s, scope.root)}});
    CheckKeyFile(scope, report);
}

void CheckModes(const CheckScope& scope, CheckReport& report) {
    const QStringList wrong = WrongRights(scope.root);
    if (wrong.isEmpty()) return;
    report.Add({.what = u"権限が違います。"_s,
                .entries = wrong,
                .effect = u"ほかの利用者が使えないか、関係のない人が読み書きできます。"_s,
                .remedy = u"次を所有者か root が実行してください。"_s,
                .commands = {ToolCommand(u"upgrade"_s, scope.root)}});
}

std::optional<Finding> SpaceFinding(const QString& folder, qint64 available) {
    constexpr qint64 kMegabyte = 1000000, kEnough = 20 * kMegabyte;
    if (available < 0 || available >= kEnough) return std::nullopt;
    return Finding{.what = u"%1 のディスクの空きが %2 MB しかありません。"_s.arg(folder).arg(available / kMegabyte),
                   .effect = u"出力が途中で止まり、履歴や修正した内容を書き込めません。"_s,
                   .remedy = u"不要なファイルを消すか、大きなディスクに移してください。"_s};
}

void CheckSpace(const CheckScope& scope, CheckReport& report) {
    for (const QString& name : {u"/data"_s, u"/conf"_s, u"/report"_s})
        if (const QString folder = scope.root + name; QFileInfo(folder).isDir())
            if (const auto finding = SpaceFinding(folder, QStorageInfo(folder).bytesAvailable())) report.Add(*finding);
}

}  // namespace setup
