#include "inquiry/ConditionProcedures.h"

#include "globals/ProgramGlobals.h"
#include "inquiry/RowStoreProcedures.h"
#include "screen/Control.h"
#include "screen/Form.h"
#include "screen/modクライアント処理.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {
using Conditions = InquiryConditions;

constexpr int kStartStaffClass = 9;
constexpr int kStartDisplayOrder = 1;

void SetOpenConditions(int staffClass) {
    Conditions& conditions = Globals().Conditions;
    for (const RangeDefinition& range : RangeDefinitions()) {
        conditions.*range.from = DefaultRangeFrom(range.mask, 0);
        conditions.*range.to = DefaultRangeTo(range.mask, 0);
    }
    for (const SearchTextDefinition& text : SearchTextDefinitions()) (conditions.*text.field).clear();
    conditions.EnrolmentKind = 0;
    conditions.StaffClass = staffClass;
    conditions.DisplayOrder = kStartDisplayOrder;
}

/// Without the lookup windows, which a clear does not affect.
const std::array<QString, 9>& ConditionWindows() {
    static const std::array<QString, 9> windows = {
        u"wnd担当者名複数指定"_s,   u"wnd担当者カナ複数指定"_s,     u"wnd担当者住所複数指定"_s,
        u"wnd担当者電話複数指定"_s, u"wnd担当者郵便番号複数指定"_s, u"wnd部門選択一覧"_s,
        u"wndセクション選択一覧"_s, u"wnd役職選択一覧"_s,           u"wnd担当者選択一覧"_s,
    };
    return windows;
}

/// Stores one bound. If the bounds would cross, the other one is set to it.
int AcceptBound(QString& bound, QString& other, const QString& value, bool isStart) {
    if (bound == value) return 1;
    bound = value;
    const bool inOrder = isStart ? bound <= other : other <= bound;
    if (inOrder) return -1;
    other = bound;
    return 0;
}
}  // namespace

const std::array<RangeDefinition, 4>& RangeDefinitions() {
    static const std::array<RangeDefinition, 4> ranges = {{
        {Range::Department, &Conditions::DepartmentFrom, &Conditions::DepartmentTo, u"000"_s, u"開始部門コード"_s,
         u"終了部門コード"_s},
        {Range::Section, &Conditions::SectionFrom, &Conditions::SectionTo, u"000"_s, u"開始セクションコード"_s,
         u"終了セクションコード"_s},
        {Range::Position, &Conditions::PositionFrom, &Conditions::PositionTo, u"00"_s, u"開始役職コード"_s,
         u"終了役職コード"_s},
        {Range::Staff, &Conditions::StaffFrom, &Conditions::StaffTo, u"00000"_s, u"開始担当者コード"_s,
         u"終了担当者コード"_s},
    }};
    return ranges;
}

const RangeDefinition& DefinitionOf(Range range) { return RangeDefinitions()[static_cast<size_t>(range)]; }

const std::array<SearchTextDefinition, 5>& SearchTextDefinitions() {
    static const std::array<SearchTextDefinition, 5> texts = {{
        {u"検索名称"_s, &Conditions::SearchName, true},
        {u"検索カナ"_s, &Conditions::SearchKana, true},
        {u"検索電話"_s, &Conditions::SearchPhone, false},
        {u"検索郵便番号"_s, &Conditions::SearchZip, false},
        {u"検索住所"_s, &Conditions::SearchAddress, true},
    }};
    return texts;
}

const std::array<KindDefinition, 3>& KindDefinitions() {
    static const std::array<KindDefinition, 3> kinds = {{
        {u"在籍区分"_s, u"在籍区分名称"_s, &Conditions::EnrolmentKind},
        {u"社員区分"_s, u"社員区分名称"_s, &Conditions::StaffClass},
        {u"表示順区分"_s, u"表示順区分名称"_s, &Conditions::DisplayOrder},
    }};
    return kinds;
}

void SetInitialConditions() { SetOpenConditions(kStartStaffClass); }

void ResetConditions() { SetOpenConditions(Globals().MainForm->Item(u"社員区分"_s).MaxValue()); }

void ResetConditionFlags() { Globals().Flags = ConditionFlags(); }

void CloseConditionWindows() {
    ResetConditionFlags();
    for (const QString& window : ConditionWindows()) {
        if (IsFormLoaded(window)) LoadedForm(window)->UnloadForm();
    }
    ResetConditions();
    ResetRowStore();
}

int CheckRangeEnds() {
    const auto& ranges = RangeDefinitions();
    for (size_t i = 0; i < ranges.size(); ++i) {
        if ((Globals().Conditions.*ranges[i].to).isEmpty()) return static_cast<int>(i) + 1;
    }
    return 0;
}

int AcceptRangeStart(Range range, const QString& value) {
    const RangeDefinition& definition = DefinitionOf(range);
    Conditions& conditions = Globals().Conditions;
    return AcceptBound(conditions.*definition.from, conditions.*definition.to, value, true);
}

int AcceptRangeEnd(Range range, const QString& value) {
    const RangeDefinition& definition = DefinitionOf(range);
    Conditions& conditions = Globals().Conditions;
    return AcceptBound(conditions.*definition.to, conditions.*definition.from, value, false);
}

bool AcceptSearchText(const SearchTextDefinition& definition, const QString& text) {
    QString& field = Globals().Conditions.*definition.field;
    if (text == field) return false;
    // Even if the cut text equals the stored one, report a change: the item still shows the long one.
    field = definition.cut ? CutToLength(text, Globals().MainForm->Item(definition.item).MaxLength()) : text;
    return true;
}

bool AcceptKind(const KindDefinition& definition, int value) {
    int& field = Globals().Conditions.*definition.field;
    if (value == field) return false;
    field = value;
    return true;
}

void CheckInputLength(const QString& text, int maxBytes) {
    const int overflow = OverflowCount(text, maxBytes);
    const QString notice = overflow > 0 ? FormatByMask(overflow, u"##0"_s) + u"文字オーバーです。"_s : QString();
    Globals().MainForm->Item(u"お知らせ"_s).SetCaption(notice);
}
