#pragma once
#include <QSizeF>
#include <QString>
#include <memory>
#include <stdexcept>

class QPainter;

/// A report whose form has been read and checked and whose rows stand ready. Pages count from 0.
class PreparedReport {
  public:
    virtual ~PreparedReport() = default;
    virtual int PageCount() const = 0;
    virtual QSizeF PageMillimetres() const = 0;
    virtual void PaintPage(QPainter& painter,
                           int page) = 0;  ///< painter's unit: millimetre, origin at the page's top left
};

/// Why a report can't be made, in a Japanese sentence that a clerk understands.
class ReportFailure : public std::runtime_error {
  public:
    explicit ReportFailure(const QString& reason) : std::runtime_error(reason.toStdString()), reason_(reason) {}
    QString Reason() const { return reason_; }

  private:
    QString reason_;
};

/// formsFile: path of repfrmdb; report: its name. Throws ReportFailure.
std::unique_ptr<PreparedReport> PrepareReport(const QString& formsFile, const QString& report);

/// Writes all pages into a PDF with embedded fonts; throws ReportFailure when the file can't be written.
void WritePdf(PreparedReport& report, const QString& file);
