// Part of frm要員名簿照会.h: the layout of the list.

#include <QRect>

#include "inquiry/ScreenState.h"
#include "inquiry/StaffColumns.h"
#include "mainform/frm要員名簿照会.h"
#include "screen/Form.h"
#include "screen/Labels.h"
#include "screen/PlainControls.h"
#include "screen/TabItem.h"
#include "screen/fonts/Fonts.h"

using namespace Qt::StringLiterals;

namespace {

using enum StaffText;

// On a low screen two pixels of the first hidden row stay visible in the tab; row items leave them free.
constexpr int kRowHeight = 64;
constexpr int kTitleHeight = 24;
constexpr int kTabTop = 190;
constexpr int kTabBar = 26;  // height of the tab strip
constexpr int kNumberWidth = 56;
constexpr int kStaffWidth = 252;
constexpr int kLeft = 8;
constexpr int kTabLeft = kLeft + kNumberWidth + kStaffWidth;
constexpr int kTabWidth = 670;
constexpr int kListTop = kTabTop + kTabBar + kTitleHeight;

/// An item of a row, in pixels relative to its panel.
struct RowItem {
    QStringView type;
    StaffText field;
    int x, y, width;
    bool gothic = false;
    int height = 20;
    bool toTheRight = false;
};

struct RowLabel {
    QStringView name;
    QStringView caption;
    int x, y, width;
};

constexpr int kLine1 = 2, kLine2 = 22, kLine3 = 42;

constexpr RowItem kStaffItems[] = {
    {u"xField", 担当者コード, 1, kLine1, 52}, {u"xField", 性別区分名, 92, kLine1, 42},
    {u"xField", 暗証番号, 138, kLine1, 113},  {u"xField", 担当者名, 1, kLine2, 250},
    {u"xKana", カナ, 1, kLine3, 250},
};
constexpr RowLabel kStaffLabels[] = {{u"itm_ttl_性別", u"性別", 56, kLine1, 34}};

constexpr RowItem kOrganisationItems[] = {
    {u"xField", 所属事業所名, 1, kLine1, 222}, {u"xField", 部門名, 1, kLine2, 222},
    {u"xField", セクション名, 1, kLine3, 222}, {u"xField", 役職名, 225, kLine1, 198},
    {u"xField", 在籍区分名, 287, kLine2, 136}, {u"xField", 社員区分名, 287, kLine3, 136},
};
constexpr RowLabel kOrganisationLabels[] = {
    {u"itm_ttl_在籍区分名", u"在籍", 225, kLine2, 60},
    {u"itm_ttl_社員区分名", u"社員区分", 225, kLine3, 60},
};

/// A date of the row: title, era, and year, month and day, each followed by its unit.
struct DateLayout {
    QStringView caption;
    int y;
};
constexpr DateLayout kDateLayouts[] = {{u"生年月日", kLine1}, {u"入社日付", kLine2}, {u"退職日付", kLine3}};
static_assert(std::size(kDateLayouts) == kStaffDates.size());

struct DatePart {
    StaffText StaffDate::*field;
    QStringView unit;
    int x, width;
    bool toTheRight = false;
};
constexpr DatePart kDateParts[] = {{&StaffDate::年号, u"", 481, 38},
                                   {&StaffDate::年, u"年", 520, 38, true},
                                   {&StaffDate::月, u"月", 577, 22},
                                   {&StaffDate::日, u"日", 618, 22}};
constexpr int kUnitWidth = 18;

constexpr RowItem kAddressItems[] = {
    {u"xZip", 郵便番号, 1, kLine1, 84},   {u"xField", 住所A, 87, kLine1, 244}, {u"xField", 住所B, 1, kLine2, 330},
    {u"xField", 住所C, 1, kLine3, 330},   {u"xTel", 電話, 379, kLine1, 280},   {u"xTel", 携帯電話, 379, kLine2, 280},
    {u"xField", EMAIL, 379, kLine3, 280},
};
constexpr RowLabel kAddressLabels[] = {
    {u"itm_ttl_電話", u"ＴＥＬ", 333, kLine1, 44},
    {u"itm_ttl_携帯電話", u"携帯", 333, kLine2, 44},
    {u"itm_ttl_EMAIL", u"E-mail", 333, kLine3, 44},
};

constexpr RowItem kOtherItems[] = {
    {.type = u"xText", .field = 担当者メモ, .x = 1, .y = kLine1, .width = 440, .height = 60},
    {.type = u"xField", .field = 登録日付, .x = 487, .y = kLine1, .width = 172, .gothic = true},
    {.type = u"xField", .field = 更新日付, .x = 487, .y = kLine2, .width = 172, .gothic = true},
};
constexpr RowLabel kOtherLabels[] = {
    {u"itm_ttl_登録日付", u"登録", 443, kLine1, 42},
    {u"itm_ttl_更新日付", u"更新", 443, kLine2, 42},
};

constexpr double kRowTitlePoints = 9, kColumnTitlePoints = 10;

void AddTitle(Form& form, Panel& panel, int position, const QString& name, QStringView caption, double points,
              const QRect& place) {
    auto* title = new Panel(form, panel, name, position, caption.toString());
    title->setFont(SuiteFont(SuiteFace::PGothic, points));
    title->SetTitle();
    title->setGeometry(place);
}

void AddItem(Form& form, Panel& panel, int position, const RowItem& item) {
    const QString name = ColumnOf(item.field).item.toString();
    auto* made = new DisplayItem(form, panel, item.type.toString(), name, position);
    made->setFont(item.gothic ? SuiteFont(SuiteFace::Gothic, 11.25) : SuiteFont(SuiteFace::Mincho, 12));
    if (item.toTheRight) made->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    made->setGeometry(item.x, item.y, item.width, item.height);
}

template <size_t Items, size_t Labels>
void FillRowPanel(Form& form, Panel& panel, int position, const RowItem (&items)[Items],
                  const RowLabel (&labels)[Labels]) {
    for (const RowLabel& label : labels)
        AddTitle(form, panel, position, label.name.toString(), label.caption, kRowTitlePoints,
                 {label.x, label.y, label.width, 20});
    for (const RowItem& item : items) AddItem(form, panel, position, item);
}

void AddUnit(Form& form, Panel& panel, int position, const QString& item, const DatePart& part, int y) {
    auto* unit = new Label(form, panel, u"lab_"_s + item, position, part.unit.toString());
    unit->setFont(SuiteFont(SuiteFace::PGothic, kRowTitlePoints));
    unit->setAlignment(Qt::AlignCenter);
    unit->SetEdgeless();
    unit->setGeometry(part.x + part.width, y, kUnitWidth, 20);
}

void AddDate(Form& form, Panel& panel, int position, const StaffDate& date, const DateLayout& layout) {
    AddTitle(form, panel, position, u"itm_ttl_"_s + ColumnOf(date.stored).column.toString(), layout.caption,
             kRowTitlePoints, {425, layout.y, 54, 20});
    for (const DatePart& part : kDateParts) {
        const StaffText field = date.*part.field;
        AddItem(form, panel, position,
                {.type = u"xField",
                 .field = field,
                 .x = part.x,
                 .y = layout.y,
                 .width = part.width,
                 .toTheRight = part.toTheRight});
        if (!part.unit.isEmpty())  // an era has no unit
            AddUnit(form, panel, position, ColumnOf(field).item.toString(), part, layout.y);
    }
}

Panel& MakeRowPanel(Form& form, QWidget& parent, const QString& name, int position, const QRect& place) {
    auto* panel = new Panel(form, parent, name, position, QString());
    panel->setGeometry(place);
    return *panel;
}

void BuildRowNumber(Form& form, int position) {
    Panel& panel = MakeRowPanel(form, form, u"bak_dtl_行No"_s, position,
                                {kLeft, kListTop + position * kRowHeight, kNumberWidth, kRowHeight});
    auto* number = new DisplayItem(form, panel, u"xField"_s, u"行No"_s, position);
    number->setFont(SuiteFont(SuiteFace::Gothic, 11.25));
    number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    number->setGeometry(1, kLine1, kNumberWidth - 2, 20);
    // All of the cell below the number: a click beside the box would open the row.
    auto* box = new CheckItem(form, panel, u"chb_出力対象"_s, position, QString());
    box->setFocusPolicy(Qt::NoFocus);
    box->setGeometry(1, kLine2, kNumberWidth - 2, kRowHeight - kLine2 - 1);
}

struct TabPages {
    QWidget& organisation;
    QWidget& address;
    QWidget& other;
};

void BuildRow(Form& form, const TabPages& pages, int position) {
    BuildRowNumber(form, position);
    Panel& staff = MakeRowPanel(form, form, u"bak_dtla"_s, position,
                                {kLeft + kNumberWidth, kListTop + position * kRowHeight, kStaffWidth, kRowHeight});
    FillRowPanel(form, staff, position, kStaffItems, kStaffLabels);
    const QRect place(0, kTitleHeight + position * kRowHeight, kTabWidth - 4, kRowHeight);
    Panel& organisation = MakeRowPanel(form, pages.organisation, u"bak_dtlb"_s, position, place);
    FillRowPanel(form, organisation, position, kOrganisationItems, kOrganisationLabels);
    for (size_t i = 0; i < kStaffDates.size(); ++i)
        AddDate(form, organisation, position, kStaffDates[i], kDateLayouts[i]);
    FillRowPanel(form, MakeRowPanel(form, pages.address, u"bak_dtlc"_s, position, place), position, kAddressItems,
                 kAddressLabels);
    FillRowPanel(form, MakeRowPanel(form, pages.other, u"bak_dtld"_s, position, place), position, kOtherItems,
                 kOtherLabels);
}

struct Title {
    QStringView name;
    QStringView caption;
    int x, width;
};

void BuildTitles(Form& form, QWidget& parent, const QString& panelName, const QRect& place,
                 std::initializer_list<Title> titles) {
    auto* panel = new Panel(form, parent, panelName, -1, QString());
    panel->SetBackColor(kCaptionColor);
    panel->setGeometry(place);
    for (const Title& title : titles)
        AddTitle(form, *panel, -1, title.name.toString(), title.caption, kColumnTitlePoints,
                 {title.x, 1, title.width, kTitleHeight - 2});
}

void BuildAllTitles(Form& form, const TabPages& pages) {
    const int top = kListTop - kTitleHeight;
    const QRect page(0, 0, kTabWidth - 4, kTitleHeight);
    BuildTitles(form, form, u"bak_dtl_head_行No"_s, {kLeft, top, kNumberWidth, kTitleHeight},
                {{u"itm_ttl_行No", u"行No", 1, kNumberWidth - 2}});
    BuildTitles(form, form, u"baK_dtl_heada"_s, {kLeft + kNumberWidth, top, kStaffWidth, kTitleHeight},
                {{u"itm_ttl_担当者", u"コード/氏名/カナ", 1, kStaffWidth - 2}});
    BuildTitles(form, pages.organisation, u"baK_dtl_headb"_s, page,
                {{u"itm_ttl_所属", u"所属", 1, 222},
                 {u"itm_ttl_役職", u"役職/在籍/社員区分", 225, 198},
                 {u"itm_ttl_日付", u"生年月日/入社日付/退職日付", 425, 234}});
    BuildTitles(form, pages.address, u"bak_dtl_head"_s, page,
                {{u"itm_ttl_住所", u"住所", 1, 330}, {u"itm_ttl_連絡先", u"連絡先", 333, 326}});
    BuildTitles(form, pages.other, u"bak_dtl_headd"_s, page,
                {{u"itm_ttl_メモ", u"メモ", 1, 440}, {u"itm_ttl_登録更新日付", u"登録・更新日付", 443, 216}});
}

}  // namespace

void BuildListPanel(Form& form) {
    constexpr int kListHeight = kRowPositions * kRowHeight;
    auto* tab = new TabItem(form, form, u"tab_詳細"_s);
    tab->setFont(SuiteFont(SuiteFace::PGothic, 10));
    tab->setGeometry(kTabLeft, kTabTop, kTabWidth, kTabBar + kTitleHeight + kListHeight);
    const TabPages pages{tab->AddPage(u"所属情報"_s), tab->AddPage(u"基本情報"_s), tab->AddPage(u"その他"_s)};
    BuildAllTitles(form, pages);
    for (int position = 0; position < kRowPositions; ++position) BuildRow(form, pages, position);
    auto* bar = new ScrollItem(form, form, u"scl_行"_s);
    bar->setGeometry(kTabLeft + kTabWidth, kListTop, 18, kListHeight);
}
