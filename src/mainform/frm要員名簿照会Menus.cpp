// Part of frm要員名簿照会.h: the context menus of the list.

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <algorithm>

#include "globals/ProgramGlobals.h"
#include "inquiry/ListStatus.h"
#include "inquiry/RowMarks.h"
#include "inquiry/ScreenState.h"
#include "inquiry/StaffColumns.h"
#include "mainform/frm要員名簿照会.h"
#include "screen/Labels.h"

using namespace Qt::StringLiterals;

namespace {

struct MenuEntry {
    QString caption;
    bool enabled;
    std::function<void()> run;
};

void PopUpMenu(QWidget& window, const QPoint& place, const QList<MenuEntry>& entries) {
    auto* menu = new QMenu(&window);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const MenuEntry& entry : entries) {
        QAction* action = menu->addAction(entry.caption);
        action->setEnabled(entry.enabled);
        QObject::connect(action, &QAction::triggered, &window, [run = entry.run] { Form::RunEvent(run); });
    }
    menu->popup(place);
}

void Copy(const QString& text) { QGuiApplication::clipboard()->setText(text); }

/// The text at a place of a row's panel; empty between the items. PINs are never copied.
QString TextAt(const QWidget& panel, const QPoint& place) {
    const auto* item = dynamic_cast<const DisplayItem*>(panel.childAt(place));
    return item == nullptr || item->Name() == u"暗証番号" ? QString() : item->Text();
}

QString DateText(const StaffDate& date, int row) {
    const StaffRowStore& rows = Globals().Rows;
    if (rows.Text(date.stored, row).isEmpty()) return {};
    return rows.Text(date.年号, row) + rows.Text(date.年, row) + u'年' + rows.Text(date.月, row) + u'月' +
           rows.Text(date.日, row) + u'日';
}

/// The date that begins with this field; nullptr for another field.
const StaffDate* DateFrom(StaffText field) {
    const auto* date = std::find_if(kStaffDates.begin(), kStaffDates.end(),
                                    [field](const StaffDate& candidate) { return candidate.年号 == field; });
    return date == kStaffDates.end() ? nullptr : date;
}

bool IsRestOfDate(StaffText field) {
    return std::any_of(kStaffDates.begin(), kStaffDates.end(), [field](const StaffDate& date) {
        return field == date.年 || field == date.月 || field == date.日;
    });
}

/// The row as one line of cells separated by tabs, for pasting into a spreadsheet: what the list shows without the PIN,
/// each date as one cell.
QString RowText(int row) {
    QStringList cells;
    for (const DetailItem& detail : DetailItems()) {
        if (detail.field == StaffText::暗証番号 || IsRestOfDate(detail.field)) continue;
        const StaffDate* date = DateFrom(detail.field);
        QString cell = date != nullptr ? DateText(*date, row) : Globals().Rows.Text(detail.field, row);
        for (const QChar separator : {u'\t', u'\r', u'\n'}) cell.replace(separator, u' ');
        cells << cell;
    }
    return cells.join(u'\t');
}

}  // namespace

void frm要員名簿照会::ConnectMenus() {
    for (int position = 0; position < kRowPositions; ++position) {
        ConnectMenu(Item(u"bak_dtl_行No"_s, position), [this, position](const QPoint& place) {
            OpenMarkMenu(Item(u"bak_dtl_行No"_s, position).Widget().mapToGlobal(place), Globals().TopRow + position);
        });
        for (const QString& name : {u"bak_dtla"_s, u"bak_dtlb"_s, u"bak_dtlc"_s, u"bak_dtld"_s})
            ConnectMenu(Item(name, position), [this, name, position](const QPoint& place) {
                OpenCopyMenu(Item(name, position).Widget(), place, Globals().TopRow + position);
            });
    }
    const QWidget& title = Item(u"bak_dtl_head_行No"_s).Widget();
    ConnectMenu(Item(u"bak_dtl_head_行No"_s),
                [this, &title](const QPoint& place) { OpenMarkMenu(title.mapToGlobal(place), -1); });
}

void frm要員名簿照会::ConnectMenu(Control& panel, const std::function<void(const QPoint&)>& open) {
    panel.Widget().setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&panel.Widget(), &QWidget::customContextMenuRequested, this,
            [open](const QPoint& place) { Guarded([&] { open(place); })(); });
}

void frm要員名簿照会::OpenMarkMenu(const QPoint& place, int row) {
    const int last = Globals().LastRow;
    if (last < 0) return;
    const auto entry = [](const QString& caption, bool enabled, const std::function<void()>& change) {
        return MenuEntry{caption, enabled, Guarded([change] {
                             change();
                             PaintDetailRows();
                             ShowRowCounts();
                         })};
    };
    PopUpMenu(*this, place,
              {entry(u"すべて印を付ける"_s, true, [] { MarkRowsFrom(0, true); }),
               entry(u"すべて外す"_s, true, [] { MarkRowsFrom(0, false); }), entry(u"反転"_s, true, InvertMarks),
               entry(u"ここから下を外す"_s, row >= 0 && row <= last, [row] { MarkRowsFrom(row, false); })});
}

void frm要員名簿照会::OpenCopyMenu(const QWidget& panel, const QPoint& place, int row) {
    if (row > Globals().LastRow) return;
    const QString text = TextAt(panel, place);
    PopUpMenu(*this, panel.mapToGlobal(place),
              {{u"ｺﾋﾟｰ"_s, !text.isEmpty(), [text] { Copy(text); }},
               {u"行をｺﾋﾟｰ"_s, true, [line = RowText(row)] { Copy(line); }}});
}
