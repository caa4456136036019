#include "setup/commands/PrinterCommand.h"

#include <QDir>
#include <QFileInfo>

#include "report-host/layout/PreparedReport.h"
#include "report-host/template/OutputTarget.h"
#include "setup/UsageError.h"
#include "setup/storage/InstallationUsers.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr long kWorkFailed = 1;
const QString kReport = u"--report"_s, kPrinter = u"--to-printer"_s, kFolder = u"--to-folder"_s,
              kDefault = u"--to-default"_s;

/// The common template files first, then the users' copies.
QStringList FormsFiles(const QString& root) {
    QStringList files = FormsFilesIn(CommonPlaces(root).report);
    for (const FilePlaces& places : AllPrivatePlacesToChange(root)) files += FormsFilesIn(places.report);
    return files;
}

OutputTarget PlaceFrom(const Arguments& arguments) {
    if (arguments.Has(kPrinter)) return {OutputTarget::Kind::Printer, arguments.options.value(kPrinter)};
    if (!arguments.Has(kFolder)) return {};
    const QFileInfo folder(arguments.options.value(kFolder));
    if (!folder.isDir()) throw UsageError(u"フォルダ %1 がありません。"_s.arg(folder.filePath()));
    return {OutputTarget::Kind::Folder, folder.absoluteFilePath()};
}

QString Words(const OutputTarget& place) {
    switch (place.kind) {
        case OutputTarget::Kind::Printer:
            return u"プリンター "_s + place.name;
        case OutputTarget::Kind::Folder:
            return u"フォルダ "_s + place.name;
        default:
            return u"通常使うプリンター"_s;
    }
}

void Show(const QString& file, const QString& report, const Console& console) {
    try {
        console.out << file << u": "_s << Words(ReadOutputTarget(file, report)) << u'\n';
    } catch (const ReportFailure& failure) {
        throw platform::RuntimeError(kWorkFailed, failure.Description());
    }
}

}  // namespace

QList<OptionRule> PrinterOptions() { return {{kReport, true}, {kPrinter, true}, {kFolder, true}, {kDefault, false}}; }

void ChoosePrinter(const Arguments& arguments, const Console& console) {
    const QString root = QDir::cleanPath(QFileInfo(arguments.installation).absoluteFilePath());
    const QStringList files = FormsFiles(root);
    if (files.isEmpty()) throw UsageError(u"%1 に帳票ファイルがありません。"_s.arg(root));
    const int choices = arguments.Has(kPrinter) + arguments.Has(kFolder) + arguments.Has(kDefault);
    if (choices > 1) throw UsageError(u"出力先は一つだけ指定してください。"_s);
    const QString report = arguments.options.value(kReport);
    const OutputTarget place = PlaceFrom(arguments);
    for (const QString& file : files) {
        if (choices == 1) WriteOutputTarget(file, report, place);
        Show(file, report, console);
    }
}

}  // namespace setup
