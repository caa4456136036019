// Part of Verbs.h: the verb `init`.
#include <QFileInfo>
#include <limits>

#include "data/Files.h"
#include "data/ReportHostTrust.h"
#include "platform/SealedPins.h"
#include "setup/commands/Verbs.h"
#include "setup/sample/Sample.h"
#include "setup/storage/Installer.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

void ShowTrialPeople(const QString& root, FileKind kind, const Console& console) {
    const QString general = root + u"/data/"_s + DesktopFileName(u"gnrdb"_s, kind);
    console.out << u"起動すると暗証番号を尋ねます。次の要員で試せます。\n"_s;
    for (const QString& line : TrialPeople(general, root + u"/conf/"_s + platform::PinKeyFileName()))
        console.out << u"  "_s << line << u'\n';
}

/// Registering a host needs the machine's administrator; the installation is complete without it.
void TryToRegisterHost(const QString& root, const Console& console) {
    try {
        RegisterReportHost(root);
    } catch (const platform::RuntimeError& error) {
        // One host serves all installations of the machine.
        if (QFileInfo(RegisteredHostFolder().value_or(QString()) + kReportHostProgram).isFile()) return;
        console.err << platform::TextForPeople(error) << u"印刷するには、管理者が次を実行してください。\n"_s
                    << u"  suite-setup registry set '%1' Path '%2'\n"_s.arg(ReportHostKey(), ReportHostFolder(root));
    }
}

}  // namespace

void CreateInstallation(const Arguments& arguments, const Console& console) {
    InstallationRequest request;
    request.folder = arguments.Installation();
    request.programFolder = console.programFolder;
    request.staff = static_cast<int>(arguments.Number(option::kStaff, request.staff, 1, 99999));
    request.seed = static_cast<quint64>(arguments.Number(option::kSeed, 1, 0, std::numeric_limits<qint64>::max()));
    request.kind =
        arguments.Choice(option::kKind, {u"accdb"_s, u"mdb"_s}) == u"mdb"_s ? FileKind::Mdb : FileKind::Accdb;
    request.installKind = arguments.Choice(option::kInstallKind, {u"0"_s, u"1"_s}).toInt();
    request.askPins = arguments.Has(option::kPin);
    request.replace = arguments.Has(option::kReplace);
    const QString root = MakeInstallation(request);
    console.out << u"%1 に要員 %2 名のインストールを作りました。\n"_s.arg(root).arg(request.staff);
    TryToRegisterHost(root, console);
    if (arguments.Has(option::kMenu)) EnterInMenu(root, console);
    if (request.askPins) ShowTrialPeople(root, request.kind, console);
}

}  // namespace setup
