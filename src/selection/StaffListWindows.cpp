#include "selection/StaffListWindows.h"

#include <algorithm>

#include "selection/LookupController.h"
#include "selection/MultiSelectController.h"
#include "selection/StaffListWindow.h"

using namespace Qt::StringLiterals;

namespace {

QList<ListColumn> Columns(int codeWidth) {
    return {{u"コード"_s, codeWidth, u"コード"_s},
            {u"氏名"_s, 2500, u"氏名"_s},
            {u"事業所"_s, 2300, u"事業所名"_s},
            {u"部門"_s, 2300, u"部門名"_s},
            {u"セクション"_s, 2300, u"セクション名"_s}};
}

const QList<StaffListDefinition>& Definitions() {
    static const QList<StaffListDefinition> definitions = {
        {{u"wnd担当者一覧"_s, u"担当者一覧"_s, u"担当者一覧"_s, u"List担当者"_s, Columns(750), u"要員台帳更新"_s}, 0},
        {{u"wnd担当者選択一覧"_s, u"担当者選択一覧"_s, u"担当者一覧"_s, u"List担当者"_s, Columns(1050), {}}, -1},
    };
    return definitions;
}

}  // namespace

ListWindow* MakeStaffListWindow(const QString& name) {
    const auto& all = Definitions();
    const auto found = std::find_if(all.begin(), all.end(), [&](const auto& one) { return one.window.name == name; });
    if (found == all.end()) return nullptr;
    auto* window = new StaffListWindow(*found);
    if (!WirePicks(*window)) WireLookup(*window);
    return window;
}
