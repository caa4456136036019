#include "report-host/layout/ReportPages.h"

#include <QPainter>
#include <algorithm>

#include "report-host/template/TemplateParser.h"

namespace report {

namespace {

/// Saves the painter's state and restores it at the end of the scope.
class PainterState {
  public:
    explicit PainterState(QPainter& painter) : painter_(painter) { painter_.save(); }
    ~PainterState() { painter_.restore(); }
    PainterState(const PainterState&) = delete;
    PainterState& operator=(const PainterState&) = delete;

  private:
    QPainter& painter_;
};

}  // namespace

QList<QPointF> CellsOfSlot(const TemplateDefinition& definition, int slot) {
    if (!definition.grid)
        return {{definition.margins.left(),
                 definition.margins.top() + definition.head.height + slot * definition.detail.height}};
    const CellGrid& grid = *definition.grid;
    QList<QPointF> cells;
    for (int i = 0; i < grid.CellsPerRow(); ++i) {
        const int cell = slot * grid.CellsPerRow() + i;
        const int across = cell % grid.across, down = cell / grid.across;
        cells.append(grid.first + QPointF(across * grid.pitchX, down * grid.pitchY));
    }
    return cells;
}

ReportPages::ReportPages(TemplateDefinition definition, QStringList columns, ReportRowStore rows, QString today)
    : template_(std::move(definition)),
      rows_(std::move(rows)),
      today_(std::move(today)),
      rowsPerPage_(RowsPerPage(template_)) {
    for (int i = 0; i < columns.size(); ++i) columns_.insert(columns[i], i);
}

int ReportPages::PageCount() const { return (rows_.Count() + rowsPerPage_ - 1) / rowsPerPage_; }

void ReportPages::PaintPage(QPainter& painter, int page) {
    const PainterState whole(painter);
    painter.translate(template_.offset);
    page_ = page;
    const int first = page * rowsPerPage_, last = std::min(first + rowsPerPage_, rows_.Count());
    QStringList heading;
    for (row_ = first; row_ < last; ++row_) {
        const QStringList values = rows_.Row(row_);
        if (row_ == first) heading = values;
        PaintRow(painter, row_, row_ - first, values);
    }
    row_ = first;
    PaintSection(painter, template_.head, template_.margins.top(), heading);
    PaintSection(painter, template_.foot, template_.page.height() - template_.margins.bottom() - template_.foot.height,
                 heading);
}

QStringList ReportPages::MissingCharacters(int page) {
    const int first = page * rowsPerPage_, last = std::min(first + rowsPerPage_, rows_.Count());
    QString text;
    for (int row = first; row < last; ++row) text += rows_.Row(row).join(u'\n');
    return fonts_.MissingCharacters(text);
}

void ReportPages::PaintRow(QPainter& painter, int row, int slot, const QStringList& values) {
    const QList<QPointF> cells = CellsOfSlot(template_, slot);
    for (qsizetype i = 0; i < cells.size(); ++i) {
        const PainterState moved(painter);
        painter.translate(cells[i]);
        if (template_.stripe.isValid() && row % 2 == 1)
            painter.fillRect(
                QRectF(0, 0, template_.grid ? template_.grid->pitchX : InnerWidth(template_), template_.detail.height),
                template_.stripe);
        const QString prefix = template_.grid ? template_.grid->prefixes.value(i) : QString();
        elements_.Paint(painter, template_.detail.elements, FieldsOf(values, prefix));
    }
}

void ReportPages::PaintSection(QPainter& painter, const TemplateSection& section, double top, const QStringList& row) {
    const PainterState moved(painter);
    painter.translate(template_.margins.left(), top);
    elements_.Paint(painter, section.elements, FieldsOf(row, QString()));
}

QString ReportPages::Running(const QString& name) const {
    if (name == u"頁") return QString::number(page_ + 1);
    if (name == u"総頁") return QString::number(PageCount());
    if (name == u"件数") return QString::number(rows_.Count());
    if (name == u"番号") return QString::number(row_ + 1);
    return name == u"改行" ? QString(u'\n') : today_;
}

FieldText ReportPages::FieldsOf(const QStringList& values, const QString& prefix) const {
    return [this, &values, prefix](const QString& name) {
        auto column = columns_.constFind(prefix + name);
        if (column == columns_.constEnd() && !prefix.isEmpty()) column = columns_.constFind(name);
        return column == columns_.constEnd() ? Running(name) : values.value(*column);
    };
}

}  // namespace report
