#include "inquiry/ConditionProcedures.h"

#include <functional>

#include "globals/ProgramGlobals.h"
#include "inquiry/StaffQuery.h"
#include "screen/Control.h"
#include "screen/Form.h"
#include "screen/modクライアント処理.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

void UnloadWindow(const ConditionSelection& selection) {
    if (IsFormLoaded(selection.window)) LoadedForm(selection.window)->UnloadForm();
}

/// Stores one bound. If the bounds would cross, the other one is set to it.
template <typename InOrder>
int AcceptBound(QString& bound, QString& other, const QString& value, InOrder inOrder) {
    if (bound == value) return 1;
    bound = value;
    if (inOrder(bound, other)) return -1;
    other = bound;
    return 0;
}

}  // namespace

void SetInitialConditions() {
    InquiryConditions& conditions = Globals().Conditions;
    for (const RangeCondition& range : RangeConditions()) {
        conditions.*range.from = DefaultRangeFrom(range.mask, 0);
        conditions.*range.to = DefaultRangeTo(range.mask, 0);
    }
    for (const TextCondition& text : TextConditions()) (conditions.*text.field).clear();
    for (const KindCondition& kind : KindConditions()) conditions.*kind.field = kind.startValue;
}

void ResetConditions() {
    const int allClasses = Globals().MainForm->Item(ConditionOf(Kind::StaffClass).item).MaxValue();
    SetInitialConditions();
    Globals().Conditions.StaffClass = allClasses;
}

void ResetConditionFlags() { Globals().Flags = ConditionFlags(); }

// The lookup windows stay loaded.
void CloseConditionWindows() {
    ResetConditionFlags();
    for (const TextCondition& text : TextConditions()) UnloadWindow(text.selection);
    for (const RangeCondition& range : RangeConditions()) UnloadWindow(range.selection);
    ResetConditions();
    ResetRowStore();
}

int CheckRangeEnds() {
    for (const RangeCondition& range : RangeConditions()) {
        if ((Globals().Conditions.*range.to).isEmpty()) return static_cast<int>(range.id) + 1;
    }
    return 0;
}

int AcceptRangeStart(Range range, const QString& value) {
    const RangeCondition& condition = ConditionOf(range);
    InquiryConditions& conditions = Globals().Conditions;
    return AcceptBound(conditions.*condition.from, conditions.*condition.to, value, std::less_equal<>());
}

int AcceptRangeEnd(Range range, const QString& value) {
    const RangeCondition& condition = ConditionOf(range);
    InquiryConditions& conditions = Globals().Conditions;
    return AcceptBound(conditions.*condition.to, conditions.*condition.from, value, std::greater_equal<>());
}

bool AcceptSearchText(const TextCondition& condition, const QString& text) {
    QString& field = Globals().Conditions.*condition.field;
    if (text == field) return false;
    // Even if the cut text equals the stored one, report a change: the item still shows the long one.
    field = condition.cut ? CutToLength(text, Globals().MainForm->Item(condition.item).MaxLength()) : text;
    return true;
}

bool AcceptKind(const KindCondition& condition, int value) {
    int& field = Globals().Conditions.*condition.field;
    if (value == field) return false;
    field = value;
    return true;
}

void CheckInputLength(const QString& text, int maxBytes) {
    const int overflow = OverflowCount(text, maxBytes);
    const QString notice = overflow > 0 ? FormatByMask(overflow, u"##0"_s) + u"文字オーバーです。"_s : QString();
    Globals().MainForm->Item(u"お知らせ"_s).SetCaption(notice);
}
