#include "selection/ListWindowLayout.h"

#include <QHeaderView>
#include <QScrollBar>

#include "screen/Form.h"
#include "screen/InputItem.h"
#include "screen/Labels.h"
#include "screen/ListView.h"
#include "screen/PlainControls.h"
#include "screen/fonts/Fonts.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kTitleTop = 8;
constexpr int kTitleHeight = 32;
constexpr int kHeadTop = kTitleTop + kTitleHeight + 8;
constexpr int kLine = 30;    // line pitch of the head
constexpr int kHeight = 26;  // of an item
constexpr int kButtonHeight = 32;
constexpr int kButtonWidth = 108;
constexpr int kButtonPitch = kButtonWidth + 4;
constexpr int kGap = 8;

const QString kTitle = u"prg_ttl"_s;
const QString kBack = u"btn_戻る"_s;

int ListWidth(const ListView& list, const ListWindowDefinition& definition) {
    int width = 2 * list.frameWidth() + list.verticalScrollBar()->sizeHint().width();
    for (const ListColumn& column : definition.columns) width += qRound(double(column.width) / kTwipsPerPixel);
    return width;
}

/// Moves the controls at y = `top` down by one line of buttons and grows the window by it.
void AddButtonLine(Form& form, int top) {
    constexpr int kPitch = kButtonHeight + kGap;
    for (const Control* control : form.Controls()) {
        QWidget& widget = control->Widget();
        if (widget.y() == top) widget.move(widget.x(), top + kPitch);
    }
    form.setFixedSize(form.width(), form.height() + kPitch);
}

/// Inserts controls into the tab order before another one.
void InsertStops(Form& form, const QStringList& names, const Control& before) {
    const int first = before.TabIndex();
    for (Control* control : form.Controls()) {
        if (control->TabIndex() >= first) control->SetTabIndex(control->TabIndex() + static_cast<int>(names.size()));
    }
    for (int i = 0; i < names.size(); ++i) form.Item(names[i]).SetTabIndex(first + i);
}

/// Height for whole rows only, so that none is cut off at the bottom.
int ListHeight(const ListView& list, int visibleRows) {
    return 2 * list.frameWidth() + list.header()->sizeHint().height() + visibleRows * list.RowHeight();
}

}  // namespace

QRect HeadRect(int left, int line, int width) { return {left, kHeadTop + line * kLine, width, kHeight}; }

int HeadHeight(int lines) { return lines * kLine; }

Button& MakeListButton(Form& form, const QString& name, const QString& caption) {
    auto* button = new Button(form, form, name, caption);
    button->setFont(SuiteFont(SuiteFace::PGothic, 10));
    return *button;
}

void BuildListFrame(Form& form, const ListWindowDefinition& definition) {
    QPalette colors = form.palette();
    colors.setColor(QPalette::Window, kCaptionColor);
    form.setPalette(colors);
    auto* title = new Panel(form, form, kTitle, -1, definition.title);
    title->setFont(SuiteFont(SuiteFace::PGothic, 14));
    auto* list = new ListView(form, form, definition.list);
    list->setFont(SuiteFont(SuiteFace::PGothic, 10));
    MakeListButton(form, kBack, u"戻る"_s);
}

void ArrangeListFrame(Form& form, const ListWindowDefinition& definition, int headHeight, int visibleRows) {
    auto& list = static_cast<ListView&>(form.Item(definition.list));
    const int width = ListWidth(list, definition);
    const int top = kHeadTop + headHeight;
    const int height = ListHeight(list, visibleRows);
    form.Item(kTitle).Widget().setGeometry(kListLeft, kTitleTop, width, kTitleHeight);
    list.setGeometry(kListLeft, top, width, height);
    const int buttons = top + height + kGap;
    form.Item(kBack).Widget().setGeometry(kListLeft + width - kButtonWidth, buttons, kButtonWidth, kButtonHeight);
    form.setFixedSize(width + 2 * kListLeft, buttons + kButtonHeight + kGap);
}

void PlaceBelowList(Form& form, const QStringList& buttons) {
    int left = kListLeft;
    for (const QString& name : buttons) {
        form.Item(name).Widget().setGeometry(left, form.Item(kBack).Widget().y(), kButtonWidth, kButtonHeight);
        left += kButtonPitch;
    }
}

void AddListButtons(Form& form, const QList<ListButton>& buttons) {
    const QWidget& back = form.Item(kBack).Widget();
    const int line = back.y();
    const bool ownLine = kListLeft + buttons.size() * kButtonPitch > back.x();
    if (ownLine) AddButtonLine(form, line);
    QStringList names;
    for (const ListButton& button : buttons) {
        MakeListButton(form, button.name, button.caption)
            .setGeometry(kListLeft + static_cast<int>(names.size()) * kButtonPitch, line, kButtonWidth, kButtonHeight);
        names << button.name;
    }
    if (ownLine) form.Item(names.last()).Widget().move(back.x(), line);
    InsertStops(form, names, form.Item(kBack));
}

void MakeClassItems(Form& form, const QString& name, const QString& title, int left, int line, int width) {
    constexpr int kTitleWidth = 76, kNumberWidth = 30, kBetween = 2;
    auto* caption = new Panel(form, form, u"itm_ttl_"_s + name, -1, title);
    caption->setFont(SuiteFont(SuiteFace::PGothic, 10));
    caption->setGeometry(HeadRect(left, line, kTitleWidth));
    auto* number = new NumItem(form, form, name);
    number->setFont(SuiteFont(SuiteFace::PMincho, 12));
    number->setGeometry(HeadRect(left + kTitleWidth + kBetween, line, kNumberWidth));
    const int used = kTitleWidth + kNumberWidth + 2 * kBetween;
    auto* list = new ComboItem(form, form, name + u"名称"_s);
    list->setFont(SuiteFont(SuiteFace::PMincho, 12));
    list->setGeometry(HeadRect(left + used, line, width - used));
}

void NumberStops(Form& form, const QStringList& names) {
    int last = static_cast<int>(names.size());
    for (Control* control : form.Controls()) {
        const auto place = names.indexOf(control->Name());
        control->SetTabIndex(place < 0 ? last++ : static_cast<int>(place));
    }
}

void BuildMasterItems(Form& form, const ListWindowDefinition& definition, bool hasStatus) {
    const QString status = u"稼動状況区分"_s, clear = u"btn_画面クリア"_s;
    constexpr int kRows = 20;
    ArrangeListFrame(form, definition, hasStatus ? HeadHeight(1) : 0, kRows);
    QStringList stops = {definition.list};
    if (hasStatus) {
        MakeClassItems(form, status, u"稼動状況"_s, kListLeft, 0, form.width() - 2 * kListLeft);
        MakeListButton(form, clear, u"条件ｸﾘｱ"_s);
        PlaceBelowList(form, {clear});
        stops << status << status + u"名称"_s << clear;
    }
    NumberStops(form, stops << kBack);
}
