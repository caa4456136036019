// Part of Mod要員名簿照会.h: the start command.

#include <algorithm>
#include <array>
#include <utility>

#include "access/ConditionLabels.h"
#include "frame/Mod要員名簿照会.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/SearchConditions.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

// The block is a sequence of fields of fixed width in characters: office, ranges, texts, display order.
constexpr int kOfficeWidth = 3;
constexpr int kTextWidth = 30;
constexpr int kDisplayOrderWidth = 1;
constexpr auto kTextOrder =
    std::to_array({SearchText::Name, SearchText::Kana, SearchText::Phone, SearchText::Zip, SearchText::Address});
static_assert(kTextOrder.size() == kSearchTextCount);

/// All fields are set, whatever the length: a short command empties the fields after its end, ranges included.
void CutFields(const QString& command) {
    InquiryConditions& conditions = Globals().Conditions;
    qsizetype position = 0;
    const auto next = [&](qsizetype width) { return command.mid(std::exchange(position, position + width), width); };
    Globals().ScopeOfficeCode = next(kOfficeWidth);
    for (const RangeCondition& range : RangeConditions()) {
        conditions.*range.from = next(range.mask.size());
        conditions.*range.to = next(range.mask.size());
    }
    for (const SearchText text : kTextOrder) conditions.*ConditionOf(text).field = next(kTextWidth);
    conditions.DisplayOrder = NumericValue(next(kDisplayOrderWidth));
}

bool IsComplete(const InquiryConditions& conditions) {
    return std::ranges::none_of(RangeConditions(), [&](const RangeCondition& range) {
        return (conditions.*range.from).isEmpty() || (conditions.*range.to).isEmpty();
    });
}

QString LabelOf(const TextCondition& text) {
    return text.item + (text.fullWidth ? u"(全角15文字)"_s : u"(半角30文字)"_s);
}

QStringList FieldLabels() {
    QStringList labels = {u"事業所コード"_s};
    for (const RangeCondition& range : RangeConditions()) labels << range.fromItem << range.toItem;
    for (const SearchText text : kTextOrder) labels << LabelOf(ConditionOf(text));
    return labels << ConditionOf(Kind::DisplayOrder).item;
}

}  // namespace

void ParseStartCommand(const QString& command) {
    CutFields(command);
    InquiryConditions& conditions = Globals().Conditions;
    if (!IsComplete(conditions)) return;
    // Only the starts: an end consisting of blanks is kept and bounds the list.
    for (const RangeCondition& range : RangeConditions())
        if (TrimBlanks(conditions.*range.from).isEmpty()) (conditions.*range.from).clear();
    Globals().StartCommandAbsent = false;
}

void PublishConditionLabels(const QString& menu, const QString& programId) {
    ConditionLabels labels;
    std::ranges::copy(FieldLabels(), labels.begin());
    StoreConditionLabels(menu, programId, labels);
}
