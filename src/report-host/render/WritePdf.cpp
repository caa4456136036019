// Part of PreparedReport.h: WritePdf.

#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>

#include "platform/AtomicFile.h"
#include "report-host/layout/PreparedReport.h"
#include "report-host/render/RenderWatch.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kDotsPerInch = 1200;

[[noreturn]] void Fail(const QString& file, const platform::AtomicFile& out) {
    throw ReportFailure(u"PDF ファイル「%1」に書き込めません。%2"_s.arg(file, out.ErrorText()));
}

}  // namespace

void WritePdf(PreparedReport& report, const QString& file) {
    // Replacing a device by a file would destroy the device.
    const QFileInfo target(file);
    if (target.exists() && !target.isFile()) throw ReportFailure(u"「%1」はファイルではありません。"_s.arg(file));
    platform::AtomicFile out(file);
    if (!out.Open()) Fail(file, out);
    QPdfWriter writer(&out.Device());
    writer.setResolution(kDotsPerInch);
    writer.setTitle(QFileInfo(file).completeBaseName());
    writer.setPageSize(QPageSize(report.PageMillimetres(), QPageSize::Millimeter, u"form"_s, QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    QPainter painter;
    if (!painter.begin(&writer)) Fail(file, out);
    painter.scale(kDotsPerInch / 25.4, kDotsPerInch / 25.4);
    for (int page = 0; page < report.PageCount(); ++page) {
        StopIfWanted();
        if (page > 0) writer.newPage();
        report.PaintPage(painter, page);
    }
    painter.end();
    if (!out.Commit()) Fail(file, out);
}
