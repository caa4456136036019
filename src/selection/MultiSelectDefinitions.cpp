#include "selection/MultiSelectDefinitions.h"

using namespace Qt::StringLiterals;

const std::array<PickDefinition, 4>& PickDefinitions() {
    using Flags = ConditionFlags;
    static const std::array<PickDefinition, 4> windows = {{
        {u"wnd部門選択一覧"_s, u"btn_部門個別選択"_s, u"開始部門コード"_s, &Flags::DepartmentPicked, u"M部門"_s,
         u"名称"_s, u"部門："_s},
        {u"wndセクション選択一覧"_s, u"btn_セクション個別選択"_s, u"開始セクションコード"_s, &Flags::SectionPicked,
         u"Mセクション"_s, u"名称"_s, u"セクション："_s},
        {u"wnd役職選択一覧"_s, u"btn_役職個別選択"_s, u"開始役職コード"_s, &Flags::PositionPicked, u"M役職"_s,
         u"名称"_s, u"役職："_s},
        {u"wnd担当者選択一覧"_s, u"btn_担当者個別選択"_s, u"開始担当者コード"_s, &Flags::StaffPicked, u"M担当者"_s,
         u"氏名"_s, u"担当者："_s, true},
    }};
    return windows;
}
