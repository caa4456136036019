#pragma once

#include <QHash>

#include "report-host/layout/PreparedReport.h"
#include "report-host/layout/ReportRowStore.h"
#include "report-host/render/ElementPainter.h"
#include "report-host/render/FontSet.h"
#include "report-host/template/TemplateDefinition.h"

namespace report {

/// Where a row lies on its page, from the page's corner: all its cells.
QList<QPointF> CellsOfSlot(const FormDefinition& form, int slot);

/// A form with its rows, cut into pages.
class ReportPages : public PreparedReport {
  public:
    /// `columns` are those of the rows; `today` is the text of the running value 本日.
    ReportPages(FormDefinition form, QStringList columns, ReportRowStore rows, QString today);

    int PageCount() const override;
    QSizeF PageMillimetres() const override { return form_.page; }
    void PaintPage(QPainter& painter, int page) override;
    bool CanWriteJapanese() { return types_.HasJapanese(); }

  private:
    void PaintSection(QPainter& painter, const FormSection& section, double top, const QStringList& row);
    void PaintRow(QPainter& painter, int row, int slot, const QStringList& values);
    QString Running(const QString& name) const;
    FieldText FieldsOf(const QStringList& values, const QString& prefix) const;

    FormDefinition form_;
    QHash<QString, int> columns_;
    ReportRowStore rows_;
    QString today_;
    int rowsPerPage_;
    FontSet types_;
    ElementPainter elements_{types_};
    int page_ = 0, row_ = 0;  // being painted
};

}  // namespace report
