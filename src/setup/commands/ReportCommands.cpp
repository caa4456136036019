// Part of Verbs.h: the verbs `printer`, `forms export`, `forms import`, `forms use`, `forms check` and
// `forms pdf`.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>

#include "platform/AtomicFile.h"
#include "report-host/layout/PreparedReport.h"
#include "report-host/template/OutputTarget.h"
#include "report-host/template/TemplateFile.h"
#include "report-host/template/TemplateParser.h"
#include "setup/UsageError.h"
#include "setup/commands/Verbs.h"
#include "setup/storage/Installation.h"
#include "setup/storage/Installer.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr long kWorkFailed = 1;

/// The common template files first, then the users' copies.
QStringList AllTemplateFiles(const QString& root) {
    QStringList files = TemplateFilesIn(CommonPlaces(root).report);
    for (const FilePlaces& places : AllPrivatePlacesToChange(root)) files += TemplateFilesIn(places.report);
    return files;
}

OutputTarget TargetFrom(const Arguments& arguments) {
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

[[noreturn]] void Fail(const QString& description) { throw platform::RuntimeError(kWorkFailed, description); }

QString TemplateFilePath(const Arguments& arguments) {
    const QDir root(arguments.Installation());
    if (!HoldsInstallation(arguments.Installation()))
        throw UsageError(u"%1 にインストールがありません。"_s.arg(arguments.Installation()));
    const QString user = arguments.Value(option::kUser);
    if (!user.isEmpty()) RequireUser(arguments.Installation(), user);
    const QString folder = root.filePath(user.isEmpty() ? u"report"_s : u"users/%1/report"_s.arg(user));
    const QStringList files = TemplateFilesIn(folder);
    if (files.isEmpty()) throw UsageError(u"%1 に帳票ファイル repfrmdb がありません。"_s.arg(folder));
    return files.first();
}

QString TextFileOf(const Arguments& arguments, const QString& report) {
    return QDir(arguments.Value(option::kFolder, u"."_s)).filePath(report + u".txt"_s);
}

/// The named template, which must exist, or all templates.
QStringList ChosenTemplates(const Arguments& arguments, const report::TemplateFile& file) {
    const QString name = arguments.Operand(1);
    if (name.isEmpty()) return file.Names();
    if (!file.Template(name)) throw UsageError(u"帳票「%1」はありません。"_s.arg(name));
    return {name};
}

void WriteText(const QString& path, const QString& text) {
    QString error;
    if (!platform::ReplaceFile(path, text.toUtf8(), error)) Fail(u"%1 に書き込めません。%2"_s.arg(path, error));
}

QString ReadText(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw UsageError(u"%1 を読めません。%2"_s.arg(path, file.errorString()));
    return QString::fromUtf8(file.readAll());
}

/// Prints the errors of a template text, stored or to be imported under `name`. Returns their number.
qsizetype PrintErrors(const report::TemplateFile& file, const QString& name, const QString& text, QTextStream& out) {
    const QList<report::TemplateError> errors = report::TemplateErrorsOf(file, name, text);
    for (const report::TemplateError& error : errors) out << name << u": "_s << error.Text() << u'\n';
    return errors.size();
}

const QRegularExpression& OffsetLine() {
    static const QRegularExpression line(u"^[ \\t　]*補正[ \\t　].*$"_s, QRegularExpression::MultilineOption);
    return line;
}

QString WithoutOffset(QString text) { return text.remove(OffsetLine()); }

/// The text of a ready-made template with the printer's offset that is set in the present template.
QString WithOffsetOf(const QString& present, QString text) {
    const QString offset = OffsetLine().match(present).captured();
    if (offset.isEmpty()) return text;
    if (text.contains(OffsetLine())) return text.replace(OffsetLine(), offset);
    return text.replace(QRegularExpression(u"^(用紙.*)$"_s, QRegularExpression::MultilineOption), u"\\1\n"_s + offset);
}

/// The ready-made template that a stored text is, except for the printer's offset; empty if it was edited.
QString ReadyNameOf(const QString& report, const QString& text) {
    for (const report::ReadyTemplate& ready : report::ReadyTemplates())
        if (ready.report == report && WithoutOffset(WithOffsetOf(text, ready.Text())) == WithoutOffset(text))
            return ready.name;
    return {};
}

void ShowReadyTemplates(const report::TemplateFile& file, QTextStream& out) {
    for (const report::ReadyTemplate& ready : report::ReadyTemplates()) {
        const QString present = file.Template(ready.report).value_or(QString());
        out << ready.name << u": "_s << ready.report;
        if (ReadyNameOf(ready.report, present) == ready.name) out << u"（使用中）"_s;
        out << u'\n';
    }
}

/// Writes an edited template to its text file, so that replacing it does not lose it.
void KeepEdited(const Arguments& arguments, const QString& report, const QString& text, const Console& console) {
    if (text.isEmpty() || !ReadyNameOf(report, text).isEmpty()) return;
    const QString path = TextFileOf(arguments, report);
    if (QFileInfo::exists(path)) throw UsageError(u"%1 が既にあるため、今の定義をそこに残せません。"_s.arg(path));
    WriteText(path, text);
    console.out << u"今までの定義を %1 に書き出しました。\n"_s.arg(path);
}

}  // namespace

void ChoosePrinter(const Arguments& arguments, const Console& console) {
    const QString root = QDir::cleanPath(QFileInfo(arguments.Installation()).absoluteFilePath());
    const QStringList files = AllTemplateFiles(root);
    if (files.isEmpty()) throw UsageError(u"%1 に帳票ファイルがありません。"_s.arg(root));
    const int choices =
        arguments.Has(option::kToPrinter) + arguments.Has(option::kToFolder) + arguments.Has(option::kToDefault);
    if (choices > 1) throw UsageError(u"出力先は一つだけ指定してください。"_s);
    const QString report = arguments.Value(option::kReport);
    const OutputTarget place = TargetFrom(arguments);
    for (const QString& file : files) {
        if (choices == 1) WriteOutputTarget(file, report, place);
        Show(file, report, console);
    }
}

void ExportTemplates(const Arguments& arguments, const Console& console) {
    const report::TemplateFile file(TemplateFilePath(arguments));
    for (const QString& name : ChosenTemplates(arguments, file)) {
        const QString path = TextFileOf(arguments, name);
        WriteText(path, *file.Template(name));
        console.out << path << u'\n';
    }
}

void ImportTemplates(const Arguments& arguments, const Console& console) {
    report::TemplateFile file(TemplateFilePath(arguments), database::ConnectMode::ReadWrite);
    QStringList names;
    if (const QString asked = arguments.Operand(1); !asked.isEmpty())
        names.append(asked);
    else
        for (const QString& name : file.Names())
            if (QFileInfo::exists(TextFileOf(arguments, name))) names.append(name);
    if (names.isEmpty()) throw UsageError(u"取り込むファイルがありません。"_s);
    QStringList texts;
    qsizetype errors = 0;
    for (const QString& name : names) {
        texts.append(ReadText(TextFileOf(arguments, name)));
        errors += PrintErrors(file, name, texts.last(), console.err);
    }
    if (errors > 0) Fail(u"誤りが %1 件あるため、取り込みませんでした。"_s.arg(errors));
    file.StoreTemplates(names, texts);
    for (const QString& name : names) console.out << u"帳票「%1」を取り込みました。\n"_s.arg(name);
}

void UseReadyTemplate(const Arguments& arguments, const Console& console) {
    report::TemplateFile file(TemplateFilePath(arguments), database::ConnectMode::ReadWrite);
    const QString name = arguments.Operand(1);
    if (name.isEmpty()) return ShowReadyTemplates(file, console.out);
    const QList<report::ReadyTemplate> all = report::ReadyTemplates();
    const auto ready = std::find_if(all.begin(), all.end(), [&](const auto& known) { return known.name == name; });
    if (ready == all.end()) throw UsageError(u"用紙「%1」はありません。"_s.arg(name));
    const QString present = file.Template(ready->report).value_or(QString());
    const QString text = WithOffsetOf(present, ready->Text());
    if (PrintErrors(file, ready->report, text, console.err) > 0) Fail(u"誤りがあるため、替えませんでした。"_s);
    KeepEdited(arguments, ready->report, present, console);
    file.StoreTemplates({ready->report}, {text});
    console.out << u"帳票「%1」を「%2」にしました。\n"_s.arg(ready->report, name);
}

void CheckTemplates(const Arguments& arguments, const Console& console) {
    const report::TemplateFile file(TemplateFilePath(arguments));
    qsizetype errors = 0;
    for (const QString& name : ChosenTemplates(arguments, file)) {
        const qsizetype found = PrintErrors(file, name, *file.Template(name), console.out);
        if (found == 0) console.out << name << u": 誤りはありません。\n"_s;
        errors += found;
    }
    if (errors > 0) Fail(u"帳票の定義に誤りが %1 件あります。"_s.arg(errors));
}

void RenderReport(const Arguments& arguments, const Console& console) {
    const QString file = TemplateFilePath(arguments);
    const QString name = arguments.Operand(1), pdf = arguments.Value(option::kOut, name + u".pdf"_s);
    try {
        const std::unique_ptr<PreparedReport> prepared = PrepareReport(file, name);
        WritePdf(*prepared, pdf);
        console.out << u"%1（%2 頁）\n"_s.arg(pdf).arg(prepared->PageCount());
    } catch (const ReportFailure& failure) {
        Fail(failure.Description());
    }
}

}  // namespace setup
