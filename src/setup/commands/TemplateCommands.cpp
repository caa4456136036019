#include "setup/commands/TemplateCommands.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "platform/AtomicFile.h"
#include "report-host/layout/PreparedReport.h"
#include "report-host/template/TemplateFile.h"
#include "report-host/template/TemplateParser.h"
#include "setup/UsageError.h"
#include "setup/storage/Installer.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

const QString kFolder = u"--folder"_s, kUser = u"--user"_s, kOut = u"--out"_s;
constexpr long kFormsFailed = 1;

[[noreturn]] void Fail(const QString& description) { throw platform::RuntimeError(kFormsFailed, description); }

QString FormsPath(const Arguments& arguments) {
    const QDir root(arguments.installation);
    if (!HoldsInstallation(arguments.installation))
        throw UsageError(u"%1 にインストールがありません。"_s.arg(arguments.installation));
    const QString user = arguments.options.value(kUser);
    const QString folder = user.isEmpty() ? u"report"_s : u"users/%1/report"_s.arg(user);
    for (const QString& name : {u"repfrmdb.accdb"_s, u"repfrmdb.mdb"_s}) {
        const QString path = root.filePath(folder + u'/' + name);
        if (QFileInfo(path).isFile()) return path;
    }
    throw UsageError(u"%1 に帳票ファイル repfrmdb がありません。"_s.arg(root.filePath(folder)));
}

QString TextFileOf(const Arguments& arguments, const QString& form) {
    return QDir(arguments.options.value(kFolder, u"."_s)).filePath(form + u".txt"_s);
}

/// The named template, which must exist, or all templates.
QStringList AskedForms(const Arguments& arguments, const report::TemplateFile& file) {
    if (arguments.further.isEmpty()) return file.Names();
    const QString name = arguments.further.first();
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
qsizetype TellMistakes(const report::TemplateFile& file, const QString& name, const QString& text, QTextStream& out) {
    const QList<report::TemplateError> mistakes = report::TemplateErrorsOf(file, name, text);
    for (const report::TemplateError& mistake : mistakes) out << name << u": "_s << mistake.Text() << u'\n';
    return mistakes.size();
}

}  // namespace

QList<OptionRule> FormFileOptions() { return {{kFolder, true}, {kUser, true}}; }
QList<OptionRule> FormCheckOptions() { return {{kUser, true}}; }
QList<OptionRule> FormPdfOptions() { return {{kOut, true}, {kUser, true}}; }

void ExportForms(const Arguments& arguments, const Console& console) {
    const report::TemplateFile file(FormsPath(arguments));
    for (const QString& name : AskedForms(arguments, file)) {
        const QString path = TextFileOf(arguments, name);
        WriteText(path, *file.Template(name));
        console.out << path << u'\n';
    }
}

void ImportForms(const Arguments& arguments, const Console& console) {
    report::TemplateFile file(FormsPath(arguments), database::ConnectMode::ReadWrite);
    QStringList names = arguments.further;
    if (names.isEmpty())
        for (const QString& name : file.Names())
            if (QFileInfo::exists(TextFileOf(arguments, name))) names.append(name);
    if (names.isEmpty()) throw UsageError(u"取り込むファイルがありません。"_s);
    QStringList texts;
    qsizetype mistakes = 0;
    for (const QString& name : names) {
        texts.append(ReadText(TextFileOf(arguments, name)));
        mistakes += TellMistakes(file, name, texts.last(), console.err);
    }
    if (mistakes > 0) Fail(u"誤りが %1 件あるため、取り込みませんでした。"_s.arg(mistakes));
    for (qsizetype i = 0; i < names.size(); ++i) {
        file.StoreTemplate(names[i], texts[i]);
        console.out << u"帳票「%1」を取り込みました。\n"_s.arg(names[i]);
    }
}

void CheckForms(const Arguments& arguments, const Console& console) {
    const report::TemplateFile file(FormsPath(arguments));
    qsizetype mistakes = 0;
    for (const QString& name : AskedForms(arguments, file)) {
        const qsizetype found = TellMistakes(file, name, *file.Template(name), console.out);
        if (found == 0) console.out << name << u": 誤りはありません。\n"_s;
        mistakes += found;
    }
    if (mistakes > 0) Fail(u"帳票の定義に誤りが %1 件あります。"_s.arg(mistakes));
}

void MakeFormPdf(const Arguments& arguments, const Console& console) {
    const QString forms = FormsPath(arguments);
    if (arguments.further.isEmpty()) throw UsageError(u"帳票の名前を指定してください。"_s);
    const QString name = arguments.further.first(), pdf = arguments.options.value(kOut, name + u".pdf"_s);
    try {
        const std::unique_ptr<PreparedReport> prepared = PrepareReport(forms, name);
        WritePdf(*prepared, pdf);
        console.out << u"%1（%2 頁）\n"_s.arg(pdf).arg(prepared->PageCount());
    } catch (const ReportFailure& failure) {
        Fail(failure.Description());
    }
}

}  // namespace setup
