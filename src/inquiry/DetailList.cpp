// Part of ScreenState.h: the list.

#include <QApplication>
#include <QPalette>

#include "globals/ProgramGlobals.h"
#include "inquiry/ScreenState.h"
#include "inquiry/StaffColumns.h"
#include "screen/Form.h"
#include "screen/ScreenScale.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kLowRows = 6;
constexpr int kTabAllowance = 30;  // twips, border of the tab below the last row

// Colour of a staff code by the last entry of the viewing log: none, kind 0, another kind.
QColor CodeColor(int viewKind) {
    if (viewKind < 0) return QApplication::palette().color(QPalette::ButtonText);
    return viewKind == 0 ? QColor(0, 128, 128) : QColor(0, 128, 0);
}

/// PINs are visible only to staff of the whole company with the right of class 9. The field is always loaded.
bool PinColumnShows() {
    const ProgramGlobals& globals = Globals();
    return globals.ScopeOfficeCode == "000"_L1 && !globals.Staff.LaunchingStaffCode.isEmpty() &&
           globals.Staff.ClassRights[9] == "0"_L1;
}

void Shrink(Control& control, int twips) { control.SetHeight(control.Height() - twips); }
void MoveUp(Control& control, int twips) { control.SetTop(control.Top() - twips); }

void ShrinkForm(Form& form) {
    const int twoRows = 2 * form.Item(u"bak_dtla"_s, 0).Height();
    for (int position = kLowRows; position < kRowPositions; ++position) {
        form.Item(u"bak_dtl_行No"_s, position).SetVisible(false);
        form.Item(u"bak_dtla"_s, position).SetVisible(false);
    }
    Shrink(form.Item(u"tab_詳細"_s), twoRows - kTabAllowance);
    Shrink(form.Item(u"scl_行"_s), twoRows - kTabAllowance);
    form.Item(u"scl_行"_s).SetLargeChange(Globals().RowsPerPage);
    for (const QString& name : {u"btn_印刷"_s, u"btn_プレビュ"_s, u"btn_テキスト出力"_s, u"btn_封筒"_s, u"btn_はがき"_s,
                                u"btn_宛名ラベル"_s, u"btn_終了"_s, u"お知らせ"_s})
        MoveUp(form.Item(name), twoRows);
    form.SetWindowHeight(form.WindowHeight() - twoRows);
}

}  // namespace

const std::vector<DetailItem>& DetailItems() {
    static const std::vector<DetailItem> items = [] {
        std::vector<DetailItem> shown;
        for (const StaffColumn& column : kStaffColumns) {
            // Painted before the check box.
            if (column.field == StaffText::行No || column.item.isEmpty()) continue;
            shown.push_back({column.field, column.item.toString()});
        }
        return shown;
    }();
    return items;
}

void AdaptScreenToHeight() {
    if (Globals().ScreenSize.height() >= kFullScreenHeight) {
        Globals().RowsPerPage = kRowPositions;
        return;
    }
    Globals().RowsPerPage = kLowRows;
    ShrinkForm(*Globals().MainForm);
}

void PaintDetailRow(int row, int position) {
    Form& form = *Globals().MainForm;
    const StaffRowStore& rows = Globals().Rows;
    const auto index = static_cast<size_t>(row);
    Globals().ScreenPainting = true;
    form.Item(u"行No"_s, position).SetText(rows.Text(StaffText::行No, row));
    form.Item(u"chb_出力対象"_s, position).SetValue(rows.出力対象[index]);
    for (const DetailItem& detail : DetailItems())
        form.Item(detail.item, position).SetText(rows.Text(detail.field, row));
    form.Item(u"担当者コード"_s, position).SetForeColor(CodeColor(rows.閲覧区分[index]));
    form.Item(u"暗証番号"_s, position).SetVisible(PinColumnShows());
    Globals().ScreenPainting = false;
}
