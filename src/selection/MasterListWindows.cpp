#include "selection/MasterListWindows.h"

#include <algorithm>

#include "selection/LookupController.h"
#include "selection/MasterListWindow.h"
#include "selection/MultiSelectController.h"

using namespace Qt::StringLiterals;

namespace {

QList<ListColumn> Columns(int codeWidth, int nameWidth) {
    return {{u"コード"_s, codeWidth, u"コード"_s}, {u"名称"_s, nameWidth, u"名称"_s}};
}

const QList<MasterListDefinition>& Definitions() {
    static const QList<MasterListDefinition> definitions = {
        {{u"wnd部門一覧"_s, u"部門一覧"_s, u"部門一覧"_s, u"List部門"_s, Columns(750, 2500), u"組織台帳更新"_s},
         u"M部門"_s,
         true},
        {{u"wndセクション一覧"_s, u"セクション一覧"_s, u"セクション一覧"_s, u"Listセクション"_s, Columns(750, 2500),
          u"班台帳更新"_s},
         u"Mセクション"_s,
         true},
        {{u"wnd役職一覧"_s, u"役職一覧"_s, u"役職一覧"_s, u"List役職"_s, Columns(750, 2500), u"職位台帳更新"_s},
         u"M役職"_s,
         false},
        {{u"wnd部門選択一覧"_s, u"部門選択一覧"_s, u"部門一覧"_s, u"List部門"_s, Columns(1000, 2300), {}},
         u"M部門"_s,
         true},
        {{u"wndセクション選択一覧"_s,
          u"セクション選択一覧"_s,
          u"セクション一覧"_s,
          u"Listセクション"_s,
          Columns(1000, 2300),
          {}},
         u"Mセクション"_s,
         true},
        {{u"wnd役職選択一覧"_s, u"役職選択一覧"_s, u"役職一覧"_s, u"List役職"_s, Columns(750, 2500), {}},
         u"M役職"_s,
         false},
    };
    return definitions;
}

}  // namespace

ListWindow* MakeMasterListWindow(const QString& name) {
    const auto& all = Definitions();
    const auto found = std::find_if(all.begin(), all.end(), [&](const auto& one) { return one.window.name == name; });
    if (found == all.end()) return nullptr;
    auto* window = new MasterListWindow(*found);
    if (!WirePicks(*window)) WireLookup(*window);
    return window;
}
