#include "selection/StaffListLayout.h"

#include "screen/Button.h"
#include "screen/fonts/Fonts.h"
#include "screen/Form.h"
#include "screen/InputItem.h"
#include "screen/Label.h"
#include "selection/ListWindowDefinition.h"
#include "selection/ListWindowLayout.h"

using namespace Qt::StringLiterals;

namespace {

// Pixels. Two columns; a search button stands in front of its item as the item's title.
constexpr int kLines = 4;
constexpr int kNoticeHeight = 24;
constexpr int kVisibleRows = 18;
constexpr int kSearchWidth = 92;
constexpr int kColumn = 352;  // from one column to the next
constexpr int kColumnWidth = 340;
constexpr int kItemLeft = kSearchWidth + 4;
constexpr int kMasterCodeWidth = 44;

struct SearchItem {
    QStringView button, caption, item;
    int column, line, width;
    int maxLength;
    ImeMode ime;
    QStringView text;  ///< shown until the program writes; a number: the item takes digits only
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
        .setGeometry(HeadPlace(left, search.line, kSearchWidth));
    MakeField(form, search.item.toString(), design, HeadPlace(left + kItemLeft, search.line, search.width));
}

/// A name that is only shown beside its code: a click passes over it, Tab does not stop on it.
void MakeShownName(Form& form, const QString& name, int column) {
    constexpr int kOffset = kItemLeft + kMasterCodeWidth + 4;
    ItemDesign design;
    design.maxLength = 20;
    InputItem& item = MakeField(form, name, design, HeadPlace(Left(column) + kOffset, 3, kColumnWidth - kOffset));
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
        MakeListButton(form, command.name, command.caption).setGeometry(HeadPlace(left, 2, command.width));
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

void BuildStaffItems(Form& form, const ListWindowDefinition& definition) {
    ArrangeListFrame(form, definition, HeadHeight(kLines) + kNoticeHeight, kVisibleRows);
    for (const SearchItem& search : kSearchItems) MakeSearchItem(form, search);
    MakeLabel(form, u"lab_コード"_s, u"以降"_s, HeadPlace(Left(0) + kItemLeft + 68, 0, 40));
    MakeShownName(form, u"部門名"_s, 0);
    MakeShownName(form, u"セクション名"_s, 1);
    MakeClassItems(form, u"在籍区分"_s, u"在籍区分"_s, Left(1), 0, kColumnWidth);
    MakeClassItems(form, u"社員区分"_s, u"社員区分"_s, Left(1), 1, kColumnWidth);
    MakeCommands(form);
    MakeLabel(form, u"lab_注意"_s, u"一回の検索で1000件までを表示します。"_s,
              HeadPlace(kListLeft, kLines, kColumnWidth));
    NumberStaffStops(form, definition.list);
}
