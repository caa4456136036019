// Part of ReportData.h: BuildSelectionText.

#include "globals/ProgramGlobals.h"
#include "inquiry/SearchConditions.h"
#include "output/ReportData.h"
#include "screen/Control.h"
#include "screen/Form.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

/// Joins segments by two blanks. An empty segment counts, so four blanks can follow one another.
class Segments {
  public:
    void Add(const QString& segment) {
        if (any_) text_ += u"  "_s;
        text_ += segment;
        any_ = true;
    }
    const QString& Text() const { return text_; }

  private:
    QString text_;
    bool any_ = false;
};

/// Empty if the window is not loaded.
QString Describe(const ConditionSelection& selection) {
    const SelectionSource* source = SourceOf(selection);
    return source == nullptr ? QString() : source->DescribeSelection();
}

/// The MaxValue of the item means "全て" and is not described.
void AddClass(Segments& segments, const KindCondition& kind) {
    const Form& form = *Globals().MainForm;
    if (kind.column.isEmpty() || Globals().Conditions.*kind.field == form.Item(kind.item).MaxValue()) return;
    segments.Add(kind.item + u"："_s + form.Item(kind.listItem).Text());
}

/// A blank text is not a condition; leading and trailing blanks of others are shown.
void AddText(Segments& segments, const TextCondition& condition) {
    const QString& text = Globals().Conditions.*condition.field;
    if (Globals().Flags.*condition.selection.flag)
        segments.Add(Describe(condition.selection));
    else if (!TrimBlanks(text).isEmpty())
        segments.Add(u"検索"_s + condition.valueItem + u"："_s + text);
}

void AddRange(Segments& segments, const RangeCondition& range) {
    const auto width = static_cast<int>(range.mask.size());
    const QString& from = Globals().Conditions.*range.from;
    const QString& to = Globals().Conditions.*range.to;
    if (Globals().Flags.*range.selection.flag)
        segments.Add(Describe(range.selection));
    else if (from != DefaultRangeFrom(range.mask, width) || to != DefaultRangeTo(range.mask, width))
        segments.Add(range.label + from + u'～' + to);
}

}  // namespace

QString BuildSelectionText() {
    Segments segments;
    for (const KindCondition& kind : KindConditions()) AddClass(segments, kind);
    for (const TextCondition& text : TextConditions()) AddText(segments, text);
    for (const RangeCondition& range : RangeConditions()) AddRange(segments, range);
    segments.Add(u"表示順："_s + Globals().MainForm->Item(ConditionOf(Kind::DisplayOrder).listItem).Text());
    return segments.Text();
}
