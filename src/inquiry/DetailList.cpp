#include "inquiry/DetailList.h"

#include <QApplication>
#include <QPalette>

#include "globals/ProgramGlobals.h"
#include "screen/Form.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kFullScreenHeight = 864;  // pixels
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
    using F = StaffText;
    static const std::vector<DetailItem> items = {
        {F::担当者コード, u"担当者コード"_s},
        {F::担当者名, u"担当者名"_s},
        {F::カナ, u"カナ"_s},
        {F::性別区分名, u"性別区分名"_s},
        {F::暗証番号, u"暗証番号"_s},
        {F::郵便番号, u"郵便番号"_s},
        {F::住所A, u"住所A"_s},
        {F::住所B, u"住所B"_s},
        {F::住所C, u"住所C"_s},
        {F::電話, u"電話"_s},
        {F::携帯電話, u"携帯電話"_s},
        {F::EMAIL, u"EMAIL"_s},
        {F::所属事業所名, u"所属事業所名"_s},
        {F::部門名, u"部門名"_s},
        {F::セクション名, u"セクション名"_s},
        {F::役職名, u"役職名"_s},
        {F::在籍区分名, u"在籍区分名"_s},
        {F::社員区分名, u"社員区分名"_s},
        {F::生年月日年号, u"生年月日年号"_s},
        {F::生年月日年, u"生年月日年"_s},
        {F::生年月日月, u"生年月日月"_s},
        {F::生年月日日, u"生年月日日"_s},
        {F::入社日付年号, u"入社日付年号"_s},
        {F::入社日付年, u"入社日付年"_s},
        {F::入社日付月, u"入社日付月"_s},
        {F::入社日付日, u"入社日付日"_s},
        {F::退社日付年号, u"退社日付年号"_s},
        {F::退社日付年, u"退社日付年"_s},
        {F::退社日付月, u"退社日付月"_s},
        {F::退社日付日, u"退社日付日"_s},
        {F::担当者メモ, u"担当者メモ"_s},
        {F::登録日付, u"登録日付"_s},
        {F::更新日付, u"更新日付"_s},
    };
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
