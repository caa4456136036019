#pragma once

#include <QSizeF>
#include <QString>
#include <QStringList>
#include <memory>

#include "report-host/template/ReportErrors.h"

class QPainter;

/// A report whose template is parsed and checked and whose rows are loaded. Pages are numbered from 0.
class PreparedReport {
  public:
    virtual ~PreparedReport() = default;
    virtual int PageCount() const = 0;
    /// Width and height.
    virtual QSizeF PageMillimetres() const = 0;
    /// Paints a page. The painter's unit is the millimetre, its origin the top left corner of the page. Throws
    /// ReportStopped when cancelled (see RenderWatch.h), database::DatabaseError if the rows can't be read.
    virtual void PaintPage(QPainter& painter, int page) = 0;
    /// The characters in the rows of a page that no installed font has; see FontSet::MissingCharacters. Throws
    /// database::DatabaseError if the rows can't be read.
    virtual QStringList MissingCharacters(int page) = 0;
};

/// Loads a report. `templateFile`: path of the template file (repfrmdb); `report`: name of the template. Throws
/// ReportFailure for a missing or invalid template, an unreadable work table, no rows, or a missing Japanese font.
std::unique_ptr<PreparedReport> PrepareReport(const QString& templateFile, const QString& report);

/// Renders all pages into a PDF with embedded fonts; an existing file is replaced atomically. `file`: its path. Throws
/// ReportFailure if the file can't be written, and what PaintPage throws; the existing file is unchanged then.
void WritePdf(PreparedReport& report, const QString& file);
