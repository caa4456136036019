#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include "report-host/PreparedReport.h"
#include "report-host/RenderWatch.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kDotsPerInch = 1200;

[[noreturn]] void Fail(const QSaveFile& out) {
    throw ReportFailure(u"PDF ファイル「%1」に書き込めません。%2"_s.arg(out.fileName(), out.errorString()));
}

}  // namespace

void WritePdf(PreparedReport& report, const QString& file) {
    // Putting a file in the place of a device would destroy the device.
    const QFileInfo target(file);
    if (target.exists() && !target.isFile()) throw ReportFailure(u"「%1」はファイルではありません。"_s.arg(file));
    // Under another name until it is whole: nobody must take half a report for a whole one.
    QSaveFile out(file);
    if (!out.open(QIODevice::WriteOnly)) Fail(out);
    QPdfWriter writer(&out);
    writer.setResolution(kDotsPerInch);
    writer.setTitle(QFileInfo(file).completeBaseName());
    writer.setPageSize(QPageSize(report.PageMillimetres(), QPageSize::Millimeter, u"form"_s, QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    QPainter painter;
    if (!painter.begin(&writer)) Fail(out);
    painter.scale(kDotsPerInch / 25.4, kDotsPerInch / 25.4);
    for (int page = 0; page < report.PageCount(); ++page) {
        StopIfWanted();
        if (page > 0) writer.newPage();
        report.PaintPage(painter, page);
    }
    painter.end();
    // commit() alone overlooks what fails while its buffer is emptied.
    if (!out.flush() || !out.commit()) Fail(out);
}
