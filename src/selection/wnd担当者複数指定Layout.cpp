// Part of wnd担当者複数指定.h: creates and places the controls.

#include "screen/Form.h"
#include "screen/Labels.h"
#include "screen/PlainControls.h"
#include "screen/fonts/Fonts.h"
#include "selection/wnd担当者複数指定.h"

using namespace Qt::StringLiterals;

namespace {

// Pixels.
constexpr int kMargin = 12;
constexpr int kTitleHeight = 32;
constexpr int kLine = 28;    // row pitch
constexpr int kHeight = 26;  // of a row
constexpr int kNumberWidth = 56;
constexpr int kItemLeft = kMargin + kNumberWidth + 2;
constexpr int kHeadTop = kMargin + kTitleHeight + 8;
constexpr int kRowsTop = kHeadTop + kLine;
constexpr int kCommandTop = kRowsTop + kValueRows * kLine + 8;
constexpr int kCommandHeight = 46;
constexpr int kButtonWidth = 104;
constexpr int kButtonHeight = 32;

void MakePanel(Form& form, const QString& name, int index, const QString& caption, SuiteFace face, const QRect& place) {
    auto* panel = new Panel(form, form, name, index, caption);
    panel->setFont(SuiteFont(face, 12));
    panel->setGeometry(place);
}

/// Wide enough for MaxLength characters.
int ItemWidth(const TextCondition& condition) { return condition.fullWidth ? 500 : 270; }

void BuildRow(Form& form, const TextCondition& condition, int row) {
    const int top = kRowsTop + row * kLine;
    MakePanel(form, u"Lab_行No"_s, row, QString::number(row + 1), SuiteFace::PMincho,
              {kMargin, top, kNumberWidth, kHeight});
    auto* item = new InputItem(form, form, u"xField"_s, condition.valueItem, row, condition.valueDesign);
    item->setFont(SuiteFont(SuiteFace::PMincho, 12));
    item->SetCaption(QString::number(row + 1));  // for screen readers: all rows have the same name
    item->setGeometry(kItemLeft, top, ItemWidth(condition), kHeight);
}

void MakeButton(Form& form, QWidget& panel, int left, const QString& name, const QString& caption) {
    auto* button = new Button(form, panel, name, caption);
    button->setFont(SuiteFont(SuiteFace::PGothic, 12));
    button->setGeometry(left, (kCommandHeight - kButtonHeight) / 2, kButtonWidth, kButtonHeight);
}

void BuildCommands(Form& form, int width) {
    auto* panel = new Panel(form, form, u"bak_操作"_s, -1, QString());
    panel->setGeometry(kMargin, kCommandTop, width, kCommandHeight);
    auto* narrowing = new CheckItem(form, *panel, u"chb_絞込み"_s, -1, u"絞込み"_s);
    narrowing->setFont(SuiteFont(SuiteFace::PGothic, 12));
    narrowing->setGeometry(10, 8, 84, kCommandHeight - 16);
    const int right = width - kButtonWidth - 8;
    MakeButton(form, *panel, right - kButtonWidth - 8, u"btn_画面クリア"_s, u"条件ｸﾘｱ"_s);
    MakeButton(form, *panel, right, u"btn_戻る"_s, u"戻る"_s);
}

}  // namespace

void BuildValueWindow(Form& form, const TextCondition& condition) {
    form.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    const QString title = condition.valueItem + u"複数指定"_s;
    form.setWindowTitle(title);
    QPalette colors = form.palette();
    colors.setColor(QPalette::Window, kCaptionColor);
    form.setPalette(colors);
    const int width = kNumberWidth + 2 + ItemWidth(condition);
    MakePanel(form, u"itm_ttl"_s, -1, title, SuiteFace::PGothic, {kMargin, kMargin, width, kTitleHeight});
    MakePanel(form, u"itm_ttl_行No"_s, -1, u"行No"_s, SuiteFace::PMincho, {kMargin, kHeadTop, kNumberWidth, kHeight});
    MakePanel(form, u"itm_ttl_"_s + condition.valueItem, -1, condition.valueItem, SuiteFace::PMincho,
              {kItemLeft, kHeadTop, ItemWidth(condition), kHeight});
    for (int row = 0; row < kValueRows; ++row) BuildRow(form, condition, row);
    BuildCommands(form, width);
    form.setFixedSize(width + 2 * kMargin, kCommandTop + kCommandHeight + kMargin);
}
