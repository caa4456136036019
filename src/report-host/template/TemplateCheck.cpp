// Part of TemplateParser.h: everything but ParseTemplate, for which the whole template must be known.

#include "report-host/template/TemplateParser.h"

#include <algorithm>
#include <cmath>

#include "report-host/template/TemplateDefinition.h"
#include "report-host/template/TemplateValues.h"

using namespace Qt::StringLiterals;

namespace report {

namespace {

constexpr double kSlack = 0.001;  // millimetres, for rounding errors

class Checker {
  public:
    Checker(const TemplateDefinition& definition, QList<TemplateError>& errors)
        : template_(definition), errors_(errors) {}

    void Check() {
        if (template_.page.isEmpty()) return Report(0, u"用紙がありません。"_s);
        if (template_.detail.line == 0) return Report(0, u"明細がありません。"_s);
        if (template_.detail.height <= 0) return;  // already reported for its line
        CheckGrid();
        CheckRows();
        const double cell = template_.grid ? template_.grid->pitchX : InnerWidth(template_);
        for (const TemplateSection* section : {&template_.head, &template_.detail, &template_.foot})
            for (const TemplateElement& element : section->elements)
                CheckElement(element, {section == &template_.detail ? cell : InnerWidth(template_), section->height});
    }

  private:
    void Report(int line, const QString& reason) { errors_.append({line, reason}); }

    void CheckRows() {
        const int rows = RowsPerPage(template_);
        if (rows < 1) Report(template_.detail.line, u"余白、頁頭、頁脚の間に明細が一つも収まりません。"_s);
        const qint64 cells = qint64{rows} * (template_.grid ? template_.grid->CellsPerRow() : 1);
        if (cells > kMostCellsOfPage)
            return Report(template_.detail.line, u"一頁の明細は %1 個までにしてください。"_s.arg(kMostCellsOfPage));
        if (cells * template_.detail.elements.size() > kMostElementsOfPage)
            Report(template_.detail.line, u"一頁に描く部品は %1 個までにしてください。"_s.arg(kMostElementsOfPage));
    }

    void CheckGrid() {
        if (!template_.grid) return;
        const CellGrid& grid = *template_.grid;
        if (grid.pitchX <= 0 || grid.pitchY <= 0) return Report(grid.line, u"升目に横間隔と縦間隔がありません。"_s);
        if (grid.across % grid.CellsPerRow() != 0) Report(grid.line, u"升目の横の数が項目の数で割り切れません。"_s);
        if (template_.detail.height > grid.pitchY + kSlack)
            Report(template_.detail.line, u"明細が升目の縦間隔より高くなっています。"_s);
        const double right = grid.first.x() + (grid.across - 1) * grid.pitchX;
        const double bottom = grid.first.y() + (grid.down - 1) * grid.pitchY + template_.detail.height;
        if (right >= template_.page.width() || bottom > template_.page.height() + kSlack)
            Report(grid.line, u"升目が用紙からはみ出しています。"_s);
    }

    void CheckElement(const TemplateElement& element, const QSizeF& available) {
        const QRectF box = element.place.normalized();
        if (element.kind == ElementKind::DigitBoxes) CheckBoxes(element, available);
        if (box.left() < -kSlack || box.top() < -kSlack || box.right() > available.width() + kSlack ||
            box.bottom() > available.height() + kSlack)
            Report(element.line,
                   u"置き場所が幅 %1、高さ %2 の外に出ています。"_s.arg(available.width()).arg(available.height()));
        if (element.style.leastPoints > element.style.points && element.style.fitting != Fitting::Cut &&
            element.kind == ElementKind::Text)
            Report(element.line, u"最小が大きさより大きくなっています。"_s);
    }

    void CheckBoxes(const TemplateElement& element, const QSizeF& available) {
        if (element.lefts.isEmpty()) return Report(element.line, u"数字枠に左端がありません。"_s);
        const auto [least, most] = std::minmax_element(element.lefts.begin(), element.lefts.end());
        if (element.place.left() + *least < -kSlack || element.place.right() + *most > available.width() + kSlack)
            Report(element.line, u"数字枠の左端が幅 %1 の外に出ています。"_s.arg(available.width()));
    }

    const TemplateDefinition& template_;
    QList<TemplateError>& errors_;
};

class ColumnList {
  public:
    ColumnList(const TemplateDefinition& definition, const QStringList& table, QList<TemplateError>& errors)
        : prefixes_(definition.grid ? definition.grid->prefixes : QStringList()), table_(table), errors_(errors) {}

    void Add(const QString& name, int line, bool inDetail) {
        bool found = false;
        if (inDetail)
            for (const QString& prefix : prefixes_) found |= Take(prefix + name);
        if (!found && !Take(name)) errors_.append({line, u"表に列「%1」がありません。"_s.arg(name)});
    }

    void AddSection(const TemplateSection& section, bool isDetail) {
        for (const TemplateElement& element : section.elements) {
            for (const TextPiece& piece : element.text)
                if (piece.isField && !IsRunningValue(piece.text)) Add(piece.text, element.line, isDetail);
            for (const QString& name : {element.onlyWith, element.onlyWithout})
                if (!name.isEmpty()) Add(name, element.line, isDetail);
        }
    }

    const QStringList& Columns() const { return columns_; }

  private:
    bool Take(const QString& name) {
        if (!table_.contains(name)) return false;
        if (!columns_.contains(name)) columns_.append(name);
        return true;
    }

    QStringList prefixes_, columns_;
    const QStringList& table_;
    QList<TemplateError>& errors_;
};

void SortByLine(QList<TemplateError>& errors) {
    std::stable_sort(errors.begin(), errors.end(),
                     [](const TemplateError& a, const TemplateError& b) { return a.Line() < b.Line(); });
}

}  // namespace

void CheckTemplate(const TemplateDefinition& definition, QList<TemplateError>& errors) {
    Checker(definition, errors).Check();
    SortByLine(errors);
}

QStringList NeededColumns(const TemplateDefinition& definition, const QStringList& table,
                          QList<TemplateError>& errors) {
    ColumnList list(definition, table, errors);
    list.AddSection(definition.head, false);
    list.AddSection(definition.detail, true);
    list.AddSection(definition.foot, false);
    for (const QString& name : definition.order)
        if (!table.contains(name)) errors.append({0, u"並びの列「%1」が表にありません。"_s.arg(name)});
    SortByLine(errors);
    return list.Columns();
}

double InnerWidth(const TemplateDefinition& definition) {
    return definition.page.width() - definition.margins.left() - definition.margins.right();
}

int RowsPerPage(const TemplateDefinition& definition) {
    if (definition.detail.height <= 0) return 0;
    if (definition.grid) return definition.grid->across * definition.grid->down / definition.grid->CellsPerRow();
    const double available = definition.page.height() - definition.margins.top() - definition.margins.bottom() -
                             definition.head.height - definition.foot.height;
    // Limits the value so that the conversion to int is defined.
    constexpr double kMost = 1e6;
    return static_cast<int>(std::floor(std::clamp((available + kSlack) / definition.detail.height, 0.0, kMost)));
}

QString EraDate(QDate day, const QList<EraStart>& eras) {
    const EraStart* newest = nullptr;
    for (const EraStart& era : eras)
        if (era.day <= day && (!newest || newest->day < era.day)) newest = &era;
    const QString year = newest ? newest->name + u"%1"_s.arg(day.year() - newest->day.year() + 1, 2, 10, QChar(u'0'))
                                : QString::number(day.year());
    return year + day.toString(u"年MM月dd日"_s);
}

}  // namespace report
