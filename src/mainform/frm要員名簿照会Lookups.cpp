// The part of frm要員名簿照会 with the lookups of the range items.

#include <QHash>

#include "globals/ProgramGlobals.h"
#include "mainform/frm要員名簿照会.h"
#include "selection/OpenListWindow.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

/// The lookup of a range item. Its list begins at the start of the range, for both items of the range. With `always` an
/// empty start gives a condition, too.
struct Lookup {
    QString window;
    QString table;
    QString startItem;
    QString mask;  ///< for the start; empty: not formatted
    bool always;
    QString nextItem;
};

const QHash<QString, Lookup>& Lookups() {
    const QString departments = u"wnd部門一覧"_s, sections = u"wndセクション一覧"_s, positions = u"wnd役職一覧"_s,
                  staff = u"wnd担当者一覧"_s;
    static const QHash<QString, Lookup> lookups = {
        {u"開始部門コード"_s, {departments, u"M部門"_s, u"開始部門コード"_s, {}, false, u"終了部門コード"_s}},
        {u"終了部門コード"_s, {departments, u"M部門"_s, u"開始部門コード"_s, {}, true, u"開始セクションコード"_s}},
        {u"開始セクションコード"_s,
         {sections, u"Mセクション"_s, u"開始セクションコード"_s, {}, false, u"終了セクションコード"_s}},
        {u"終了セクションコード"_s,
         {sections, u"Mセクション"_s, u"開始セクションコード"_s, {}, true, u"開始役職コード"_s}},
        {u"開始役職コード"_s, {positions, u"M役職"_s, u"開始役職コード"_s, u"00"_s, false, u"終了役職コード"_s}},
        {u"終了役職コード"_s, {positions, u"M役職"_s, u"開始役職コード"_s, u"00"_s, true, u"開始担当者コード"_s}},
        {u"開始担当者コード"_s, {staff, u"M担当者"_s, u"開始担当者コード"_s, {}, false, u"終了担当者コード"_s}},
        {u"終了担当者コード"_s, {staff, u"M担当者"_s, u"開始担当者コード"_s, {}, false, u"表示順区分"_s}},
    };
    return lookups;
}

QString ConditionOf(const Lookup& lookup, const QString& start) {
    if (!lookup.always && TrimBlanks(start).isEmpty()) return {};
    return lookup.table + u".コード >= '"_s + FormatCodeByMask(start, lookup.mask) + u'\'';
}

}  // namespace

void frm要員名簿照会::OpenLookupOf(Control& item) {
    const Lookup lookup = Lookups().value(item.Name());
    SetEnabled(false);
    Globals().ListCondition = ConditionOf(lookup, Item(lookup.startItem).Text());
    Globals().ListResultItem = &item;
    Globals().ListNextItem = &Item(lookup.nextItem);
    ShowListWindow(lookup.window);
}
