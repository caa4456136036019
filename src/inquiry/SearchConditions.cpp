#include "inquiry/SearchConditions.h"

#include "globals/ProgramGlobals.h"

using namespace Qt::StringLiterals;

namespace {

using Conditions = InquiryConditions;
using Flags = ConditionFlags;

RangeCondition DepartmentCodes() {
    return {.id = Range::Department,
            .from = &Conditions::DepartmentFrom,
            .to = &Conditions::DepartmentTo,
            .fromItem = u"開始部門コード"_s,
            .toItem = u"終了部門コード"_s,
            .mask = u"000"_s,
            .maxValue = 999,
            .column = u"部門コード"_s,
            .master = u"M部門"_s,
            .nameColumn = u"名称"_s,
            .lookup = u"wnd部門一覧"_s,
            .label = u"部門コード範囲:"_s,
            .selectionLabel = u"部門："_s,
            .selection = {.flag = &Flags::DepartmentPicked,
                          .window = u"wnd部門選択一覧"_s,
                          .button = u"btn_部門個別選択"_s,
                          .caption = u"部門コード範囲"_s}};
}

RangeCondition SectionCodes() {
    return {.id = Range::Section,
            .from = &Conditions::SectionFrom,
            .to = &Conditions::SectionTo,
            .fromItem = u"開始セクションコード"_s,
            .toItem = u"終了セクションコード"_s,
            .mask = u"000"_s,
            .maxValue = 999,
            .column = u"セクションコード"_s,
            .master = u"Mセクション"_s,
            .nameColumn = u"名称"_s,
            .lookup = u"wndセクション一覧"_s,
            .label = u"セクションコード範囲:"_s,
            .selectionLabel = u"セクション："_s,
            // The caption intentionally differs from the label.
            .selection = {.flag = &Flags::SectionPicked,
                          .window = u"wndセクション選択一覧"_s,
                          .button = u"btn_セクション個別選択"_s,
                          .caption = u"所属コード範囲"_s}};
}

RangeCondition PositionCodes() {
    return {.id = Range::Position,
            .from = &Conditions::PositionFrom,
            .to = &Conditions::PositionTo,
            .fromItem = u"開始役職コード"_s,
            .toItem = u"終了役職コード"_s,
            .mask = u"00"_s,
            .maxValue = 99,
            .column = u"役職コード"_s,
            .master = u"M役職"_s,
            .nameColumn = u"名称"_s,
            .lookup = u"wnd役職一覧"_s,
            .label = u"役職コード範囲:"_s,
            .selectionLabel = u"役職："_s,
            .selection = {.flag = &Flags::PositionPicked,
                          .window = u"wnd役職選択一覧"_s,
                          .button = u"btn_役職個別選択"_s,
                          .caption = u"役職コード範囲"_s}};
}

RangeCondition StaffCodes() {
    return {.id = Range::Staff,
            .from = &Conditions::StaffFrom,
            .to = &Conditions::StaffTo,
            .fromItem = u"開始担当者コード"_s,
            .toItem = u"終了担当者コード"_s,
            .mask = u"00000"_s,
            .maxValue = 999999,
            .column = u"コード"_s,
            .master = u"M担当者"_s,
            .nameColumn = u"氏名"_s,
            .lookup = u"wnd担当者一覧"_s,
            .label = u"担当者コード範囲:"_s,
            .selectionLabel = u"担当者："_s,
            .selection = {.flag = &Flags::StaffPicked,
                          .window = u"wnd担当者選択一覧"_s,
                          .button = u"btn_担当者個別選択"_s,
                          .caption = u"担当者コード範囲"_s}};
}

}  // namespace

const SelectionSource* SourceOf(const ConditionSelection& selection) {
    return Globals().SelectionWindows.value(selection.window, nullptr);
}

const std::array<RangeCondition, kRangeCount>& RangeConditions() {
    static const std::array<RangeCondition, kRangeCount> ranges = {
        {DepartmentCodes(), SectionCodes(), PositionCodes(), StaffCodes()}};
    return ranges;
}

const RangeCondition& ConditionOf(Range id) { return RangeConditions()[static_cast<size_t>(id)]; }

const std::array<KindCondition, kKindCount>& KindConditions() {
    static const std::array<KindCondition, kKindCount> kinds = {{
        {.id = Kind::Enrolment,
         .field = &Conditions::EnrolmentKind,
         .item = u"在籍区分"_s,
         .listItem = u"在籍区分名称"_s,
         .startValue = 0,
         .column = u"在籍区分"_s,
         .classTable = u"K在籍区分"_s},
        {.id = Kind::StaffClass,
         .field = &Conditions::StaffClass,
         .item = u"社員区分"_s,
         .listItem = u"社員区分名称"_s,
         .startValue = 9,
         .column = u"社員区分"_s,
         .classTable = u"K社員区分"_s},
        {.id = Kind::DisplayOrder,
         .field = &Conditions::DisplayOrder,
         .item = u"表示順区分"_s,
         .listItem = u"表示順区分名称"_s,
         .startValue = 1,
         .column = {},
         .classTable = {}},
    }};
    return kinds;
}

const KindCondition& ConditionOf(Kind id) { return KindConditions()[static_cast<size_t>(id)]; }

const QList<DisplayOrder>& DisplayOrders() {
    static const QList<DisplayOrder> orders = {
        {u"担当者コード順"_s, u"M担当者.コード"_s},
        {u"所属コード順"_s,
         u"M担当者.事業所コード, M担当者.部門コード, M担当者.セクションコード, M担当者.役職コード, M担当者.コード"_s},
        {u"名称順"_s, u"M担当者.氏名"_s},
        {u"カナ順"_s, u"M担当者.カナ"_s},
        {u"郵便番号順"_s, u"M担当者.郵便番号, M担当者.氏名"_s},
    };
    return orders;
}
