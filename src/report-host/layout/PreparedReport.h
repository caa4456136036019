#pragma once

#include <QSizeF>
#include <QString>
#include <memory>

#include "report-host/template/ReportErrors.h"

class QPainter;

/// A report whose template is parsed and checked and whose rows are loaded. Pages are numbered from 0.
class PreparedReport {
  public:
    virtual ~PreparedReport() = default;
    virtual int PageCount() const = 0;
    virtual QSizeF PageMillimetres() const = 0;
    /// Throws ReportStopped when cancelled (see RenderWatch.h), database::DatabaseError when the rows can't be read.
    virtual void PaintPage(QPainter& painter,
                           int page) = 0;  ///< painter's unit: millimetre; origin: top left of the page
};

/// Loads a report. `templateFile`: path of the template file (repfrmdb); `report`: name of the template. Throws
/// ReportFailure for a missing or invalid template, an unreadable work table, no rows, or a missing Japanese font.
std::unique_ptr<PreparedReport> PrepareReport(const QString& templateFile, const QString& report);

/// Renders all pages into a PDF with embedded fonts; an existing file is replaced atomically. Throws ReportFailure if
/// the file can't be written.
void WritePdf(PreparedReport& report, const QString& file);
