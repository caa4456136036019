#pragma once

#include <QHash>

#include "report-host/layout/PreparedReport.h"
#include "report-host/layout/ReportRowStore.h"
#include "report-host/render/ElementPainter.h"
#include "report-host/render/FontSet.h"
#include "report-host/template/TemplateDefinition.h"

namespace report {

/// Top left corners of the cells of a row, in millimetres from the top left of the page; a single one without a grid.
/// `slot`: index of the row on its page, from 0.
QList<QPointF> CellsOfSlot(const TemplateDefinition& definition, int slot);

/// Page layout: divides the rows of a report into pages, and paints them.
class ReportPages : public PreparedReport {
  public:
    /// `columns`: column names of `rows`; `today`: text of the built-in field 本日. The template must have passed
    /// CheckTemplate.
    ReportPages(TemplateDefinition definition, QStringList columns, ReportRowStore rows, QString today);

    int PageCount() const override;
    QSizeF PageMillimetres() const override { return template_.page; }
    void PaintPage(QPainter& painter, int page) override;
    QStringList MissingCharacters(int page) override;
    /// False if no installed font has Japanese glyphs.
    bool CanWriteJapanese() { return fonts_.HasJapanese(); }

  private:
    void PaintSection(QPainter& painter, const TemplateSection& section, double top, const QStringList& row);
    void PaintRow(QPainter& painter, int row, int slot, const QStringList& values);
    /// Value of a built-in field (kRunningValues) at the current position.
    QString Running(const QString& name) const;
    /// Fields of a row of a cell; a column whose name begins with the cell's prefix is preferred.
    FieldText FieldsOf(const QStringList& values, const QString& prefix) const;

    TemplateDefinition template_;
    QHash<QString, int> columns_;
    ReportRowStore rows_;
    QString today_;
    int rowsPerPage_;
    FontSet fonts_;
    ElementPainter elements_{fonts_};
    int page_ = 0, row_ = 0;  // current position while painting
};

}  // namespace report
