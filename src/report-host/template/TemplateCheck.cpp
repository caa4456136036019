#include "report-host/template/TemplateCheck.h"

#include <algorithm>
#include <cmath>

#include "report-host/template/TemplateLimits.h"
#include "report-host/template/TextPattern.h"

using namespace Qt::StringLiterals;

namespace report {

namespace {

constexpr double kSlack = 0.001;  // millimetres, for rounding errors

class Checker {
  public:
    Checker(const FormDefinition& form, QList<TemplateError>& mistakes) : form_(form), mistakes_(mistakes) {}

    void Check() {
        if (form_.page.isEmpty()) return Say(0, u"用紙がありません。"_s);
        if (form_.detail.line == 0) return Say(0, u"明細がありません。"_s);
        if (form_.detail.height <= 0) return;  // already reported for its line
        CheckGrid();
        CheckRows();
        const double cell = form_.grid ? form_.grid->pitchX : InnerWidth(form_);
        for (const FormSection* section : {&form_.head, &form_.detail, &form_.foot})
            for (const FormElement& element : section->elements)
                CheckElement(element, {section == &form_.detail ? cell : InnerWidth(form_), section->height});
    }

  private:
    void Say(int line, const QString& reason) { mistakes_.append({line, reason}); }

    void CheckRows() {
        const int rows = RowsPerPage(form_);
        if (rows < 1) Say(form_.detail.line, u"余白、頁頭、頁脚の間に明細が一つも収まりません。"_s);
        const qint64 cells = qint64{rows} * (form_.grid ? form_.grid->CellsPerRow() : 1);
        if (cells > kMostCellsOfPage)
            return Say(form_.detail.line, u"一頁の明細は %1 個までにしてください。"_s.arg(kMostCellsOfPage));
        if (cells * form_.detail.elements.size() > kMostElementsOfPage)
            Say(form_.detail.line, u"一頁に描く部品は %1 個までにしてください。"_s.arg(kMostElementsOfPage));
    }

    void CheckGrid() {
        if (!form_.grid) return;
        const CellGrid& grid = *form_.grid;
        if (grid.pitchX <= 0 || grid.pitchY <= 0) return Say(grid.line, u"升目に横間隔と縦間隔がありません。"_s);
        if (grid.across % grid.CellsPerRow() != 0) Say(grid.line, u"升目の横の数が項目の数で割り切れません。"_s);
        if (form_.detail.height > grid.pitchY + kSlack)
            Say(form_.detail.line, u"明細が升目の縦間隔より高くなっています。"_s);
        const double right = grid.first.x() + (grid.across - 1) * grid.pitchX;
        const double bottom = grid.first.y() + (grid.down - 1) * grid.pitchY + form_.detail.height;
        if (right >= form_.page.width() || bottom > form_.page.height() + kSlack)
            Say(grid.line, u"升目が用紙からはみ出しています。"_s);
    }

    void CheckElement(const FormElement& element, const QSizeF& room) {
        const QRectF box = element.place.normalized();
        if (element.kind == ElementKind::DigitBoxes) CheckBoxes(element, room);
        if (box.left() < -kSlack || box.top() < -kSlack || box.right() > room.width() + kSlack ||
            box.bottom() > room.height() + kSlack)
            Say(element.line, u"置き場所が幅 %1、高さ %2 の外に出ています。"_s.arg(room.width()).arg(room.height()));
        if (element.style.leastPoints > element.style.points && element.style.fitting != Fitting::Cut &&
            element.kind == ElementKind::Text)
            Say(element.line, u"最小が大きさより大きくなっています。"_s);
    }

    void CheckBoxes(const FormElement& element, const QSizeF& room) {
        if (element.lefts.isEmpty()) return Say(element.line, u"数字枠に左端がありません。"_s);
        const auto [least, most] = std::minmax_element(element.lefts.begin(), element.lefts.end());
        if (element.place.left() + *least < -kSlack || element.place.right() + *most > room.width() + kSlack)
            Say(element.line, u"数字枠の左端が幅 %1 の外に出ています。"_s.arg(room.width()));
    }

    const FormDefinition& form_;
    QList<TemplateError>& mistakes_;
};

class ColumnList {
  public:
    ColumnList(const FormDefinition& form, const QStringList& table, QList<TemplateError>& mistakes)
        : prefixes_(form.grid ? form.grid->prefixes : QStringList()), table_(table), mistakes_(mistakes) {}

    void Add(const QString& name, int line, bool inDetail) {
        bool found = false;
        if (inDetail)
            for (const QString& prefix : prefixes_) found |= Take(prefix + name);
        if (!found && !Take(name)) mistakes_.append({line, u"表に列「%1」がありません。"_s.arg(name)});
    }

    void AddSection(const FormSection& section, bool isDetail) {
        for (const FormElement& element : section.elements) {
            for (const TextPiece& piece : element.text)
                if (piece.isField && !IsRunningValue(piece.text)) Add(piece.text, element.line, isDetail);
            if (!element.onlyWith.isEmpty()) Add(element.onlyWith, element.line, isDetail);
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
    QList<TemplateError>& mistakes_;
};

void SortByLine(QList<TemplateError>& mistakes) {
    std::stable_sort(mistakes.begin(), mistakes.end(),
                     [](const TemplateError& a, const TemplateError& b) { return a.line < b.line; });
}

}  // namespace

void CheckForm(const FormDefinition& form, QList<TemplateError>& mistakes) {
    Checker(form, mistakes).Check();
    SortByLine(mistakes);
}

QStringList NeededColumns(const FormDefinition& form, const QStringList& table, QList<TemplateError>& mistakes) {
    ColumnList list(form, table, mistakes);
    list.AddSection(form.head, false);
    list.AddSection(form.detail, true);
    list.AddSection(form.foot, false);
    for (const QString& name : form.order)
        if (!table.contains(name)) mistakes.append({0, u"並びの列「%1」が表にありません。"_s.arg(name)});
    SortByLine(mistakes);
    return list.Columns();
}

double InnerWidth(const FormDefinition& form) { return form.page.width() - form.margins.left() - form.margins.right(); }

int RowsPerPage(const FormDefinition& form) {
    if (form.detail.height <= 0) return 0;
    if (form.grid) return form.grid->across * form.grid->down / form.grid->CellsPerRow();
    const double room =
        form.page.height() - form.margins.top() - form.margins.bottom() - form.head.height - form.foot.height;
    // Limits the value so that the conversion to int is defined.
    constexpr double kMost = 1e6;
    return static_cast<int>(std::floor(std::clamp((room + kSlack) / form.detail.height, 0.0, kMost)));
}

}  // namespace report
