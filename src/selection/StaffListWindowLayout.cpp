// Part of StaffListWindow.h: creates and places the controls.

#include "screen/Form.h"
#include "screen/InputItem.h"
#include "screen/Labels.h"
#include "screen/PlainControls.h"
#include "screen/fonts/Fonts.h"
#include "selection/ListWindowLayout.h"
#include "selection/StaffListWindow.h"

using namespace Qt::StringLiterals;

namespace {

// Pixels. Two columns; the title of an item is its search button.
constexpr int kLines = 4;
constexpr int kNoticeHeight = 24;
constexpr int kVisibleRows = 18;
constexpr int kSearchWidth = 92;
constexpr int kColumn = 352;  // column pitch
constexpr int kColumnWidth = 340;
constexpr int kItemLeft = kSearchWidth + 4;
constexpr int kMasterCodeWidth = 44;

struct SearchItem {
    QStringView button, caption, item;
    int column, line, width;
    int maxLength;
    ImeMode ime;
    QStringView text;  ///< initial; if it is a number, the item accepts digits only
};

constexpr SearchItem kSearchItems[] = {
    {u"btn_コード検索", u"コード検索", u"コード", 0, 0, 64, 5, ImeMode::Off, u"00000"},
    {u"btn_カナ検索", u"カナ検索", u"カナ", 0, 1, kColumnWidth - kItemLeft, 20, ImeMode::HalfKatakana, u""},
    {u"btn_名称検索", u"名称検索", u"名称", 0, 2, kColumnWidth - kItemLeft, 30, ImeMode::Hiragana, u""},
    {u"btn_部門コード検索", u"部門検索", u"部門コード", 0, 3, kMasterCodeWidth, 3, ImeMode::Off, u"000"},
    {u"btn_セクションコード検索", u"部署検索", u"セクションコード", 1, 3, kMasterCodeWidth, 3, ImeMode::Off, u"000"},
};

int Left(int column) { return kListLeft + column * kColumn; }

InputItem& MakeField(Form& form, const QString& name, const ItemDesign& design, const QRect& place) {
    auto* item = new InputItem(form, form, u"xField"_s, name, -1, design);
    item->setFont(SuiteFont(SuiteFace::PMincho, 12));
    item->setGeometry(place);
    return *item;
}

void MakeSearchItem(Form& form, const SearchItem& search) {
    ItemDesign design;
    design.maxLength = search.maxLength;
    design.imeMode = search.ime;
    design.text = search.text.toString();
    if (!design.text.isEmpty()) {
        design.classes = CharacterClass::Num;
        design.maxValue = QString(search.maxLength, u'9').toInt();
    }
    const int left = Left(search.column);
    MakeListButton(form, search.button.toString(), search.caption.toString())
        .setGeometry(HeadRect(left, search.line, kSearchWidth));
    MakeField(form, search.item.toString(), design, HeadRect(left + kItemLeft, search.line, search.width));
}

/// A read-only name next to its code. It is no tab stop, and a click on it moves the focus on.
void MakeShownName(Form& form, const QString& name, int column) {
    constexpr int kOffset = kItemLeft + kMasterCodeWidth + 4;
    ItemDesign design;
    design.maxLength = 20;
    InputItem& item = MakeField(form, name, design, HeadRect(Left(column) + kOffset, 3, kColumnWidth - kOffset));
    item.setReadOnly(true);
    item.SetTabStop(false);
    item.SetBackColor(form.palette().color(QPalette::Window).lighter(108));
}

void MakeLabel(Form& form, const QString& name, const QString& caption, const QRect& place) {
    auto* label = new Label(form, form, name, -1, caption);
    label->setFont(SuiteFont(SuiteFace::PGothic, 10));
    label->SetEdgeless();
    label->setGeometry(place);
}

void MakeCommands(Form& form) {
    const struct {
        QString name, caption;
        int width;
    } commands[] = {{u"btn_複合検索"_s, u"検索"_s, 126},
                    {u"btn_否定検索"_s, u"否検索"_s, 104},
                    {u"btn_画面クリア"_s, u"条件ｸﾘｱ"_s, 104}};
    int left = Left(1);
    for (const auto& command : commands) {
        MakeListButton(form, command.name, command.caption).setGeometry(HeadRect(left, 2, command.width));
        left += command.width + 3;
    }
}

void NumberStaffStops(Form& form, const QString& list) {
    NumberStops(form, {u"コード"_s,
                       u"カナ"_s,
                       u"名称"_s,
                       u"部門コード"_s,
                       u"部門名"_s,
                       u"セクションコード"_s,
                       u"セクション名"_s,
                       u"在籍区分"_s,
                       u"在籍区分名称"_s,
                       u"社員区分"_s,
                       u"社員区分名称"_s,
                       u"btn_複合検索"_s,
                       u"btn_否定検索"_s,
                       u"btn_コード検索"_s,
                       u"btn_カナ検索"_s,
                       u"btn_名称検索"_s,
                       u"btn_部門コード検索"_s,
                       u"btn_セクションコード検索"_s,
                       u"btn_画面クリア"_s,
                       list,
                       u"btn_戻る"_s});
}

}  // namespace

void StaffListWindow::BuildItems() {
    ArrangeListFrame(*this, Definition(), HeadHeight(kLines) + kNoticeHeight, kVisibleRows);
    for (const SearchItem& search : kSearchItems) MakeSearchItem(*this, search);
    MakeLabel(*this, u"lab_コード"_s, u"以降"_s, HeadRect(Left(0) + kItemLeft + 68, 0, 40));
    MakeShownName(*this, u"部門名"_s, 0);
    MakeShownName(*this, u"セクション名"_s, 1);
    MakeClassItems(*this, u"在籍区分"_s, u"在籍区分"_s, Left(1), 0, kColumnWidth);
    MakeClassItems(*this, u"社員区分"_s, u"社員区分"_s, Left(1), 1, kColumnWidth);
    MakeCommands(*this);
    MakeLabel(*this, u"lab_注意"_s, u"一回の検索で1000件までを表示します。"_s,
              HeadRect(kListLeft, kLines, kColumnWidth));
    NumberStaffStops(*this, Definition().list);
}
