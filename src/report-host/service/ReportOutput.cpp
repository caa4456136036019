#include "report-host/service/ReportOutput.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSizeF>

#include "platform/FileRights.h"
#include "platform/ScratchFolder.h"
#include "platform/Services.h"
#include "report-host/layout/PreparedReport.h"
#include "report-host/template/OutputTarget.h"

using namespace Qt::StringLiterals;

namespace {

/// An unused file name of report name and time.
QString FreeName(const QDir& folder, const QString& report) {
    const QString stamp = platform::Services().clock->Now().toString(u"yyyyMMdd-hhmmss"_s);
    for (int number = 1;; ++number) {
        const QString ending = number == 1 ? QString() : u"-%1"_s.arg(number);
        const QString name = folder.filePath(report + u'-' + stamp + ending + u".pdf"_s);
        if (!QFileInfo::exists(name)) return name;
    }
}

void SaveToFolder(PreparedReport& report, const QString& name, const QString& folder) {
    if (!QFileInfo(folder).isDir()) throw ReportFailure(u"出力先のフォルダ「%1」がありません。"_s.arg(folder));
    platform::RemoveScratchLeftovers(folder, kPrintFolderPrefix);
    // Written in a temporary folder and renamed: a program that watches the folder must never see a partial file, and
    // several users may print into it at the same time.
    const platform::ScratchFolder own(folder, kPrintFolderPrefix);
    if (!own.IsValid()) throw ReportFailure(u"「%1」に書き込めません。"_s.arg(folder));
    const QString partial = own.FilePath(u"report.pdf"_s);
    WritePdf(report, partial);
    if (!platform::ShareWithFolder(partial, folder))
        throw ReportFailure(u"「%1」に置くファイルの権限を設定できません。"_s.arg(folder));
    for (;;) {
        const QString target = FreeName(QDir(folder), name);
        if (QFile::rename(partial, target)) return;
        // Retry if another process has created a file of that name meanwhile.
        if (!QFileInfo::exists(target)) throw ReportFailure(u"「%1」に書き込めません。"_s.arg(target));
    }
}

void Print(PreparedReport& report, const QString& name, const QString& printer) {
    platform::RemoveScratchLeftovers(QDir::tempPath(), kPrintFolderPrefix);
    const platform::ScratchFolder folder(QDir::tempPath(), kPrintFolderPrefix);
    const QString pdf = folder.FilePath(u"report.pdf"_s);
    if (!folder.IsValid()) throw ReportFailure(u"作業用のフォルダを作成できません。"_s);
    WritePdf(report, pdf);
    HandToPrinter(pdf, printer, name, report.PageMillimetres());
}

}  // namespace

void PrintReport(PreparedReport& report, const QString& name, const QString& templateFile) {
    const OutputTarget place = ReadOutputTarget(templateFile, name);
    if (place.kind == OutputTarget::Kind::Folder)
        SaveToFolder(report, name, place.name);
    else
        Print(report, name, place.name);
}
