// The verb `printer` of Verbs.h.
#include "setup/commands/Verbs.h"

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

/// The common template files first, then the users' copies.
QStringList FormsFiles(const QString& root) {
    QStringList files = FormsFilesIn(CommonPlaces(root).report);
    for (const FilePlaces& places : AllPrivatePlacesToChange(root)) files += FormsFilesIn(places.report);
    return files;
}

OutputTarget PlaceFrom(const Arguments& arguments) {
    if (arguments.Has(option::kToPrinter)) return {OutputTarget::Kind::Printer, arguments.Value(option::kToPrinter)};
    if (!arguments.Has(option::kToFolder)) return {};
    const QFileInfo folder(arguments.Value(option::kToFolder));
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

void ChoosePrinter(const Arguments& arguments, const Console& console) {
    const QString root = QDir::cleanPath(QFileInfo(arguments.Installation()).absoluteFilePath());
    const QStringList files = FormsFiles(root);
    if (files.isEmpty()) throw UsageError(u"%1 に帳票ファイルがありません。"_s.arg(root));
    const int choices =
        arguments.Has(option::kToPrinter) + arguments.Has(option::kToFolder) + arguments.Has(option::kToDefault);
    if (choices > 1) throw UsageError(u"出力先は一つだけ指定してください。"_s);
    const QString report = arguments.Value(option::kReport);
    const OutputTarget place = PlaceFrom(arguments);
    for (const QString& file : files) {
        if (choices == 1) WriteOutputTarget(file, report, place);
        Show(file, report, console);
    }
}

}  // namespace setup
