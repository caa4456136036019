// Part of frm要員名簿照会.h: the layout of the outputs and of the status line, and the tab order.

#include <QStringList>

#include "inquiry/SearchConditions.h"
#include "mainform/frm要員名簿照会.h"
#include "screen/Form.h"
#include "screen/Labels.h"
#include "screen/PlainControls.h"
#include "screen/StatusLine.h"
#include "screen/TabItem.h"
#include "screen/fonts/Fonts.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kButtonTop = 758;
constexpr int kButtonHeight = 34;
constexpr int kNoticeTop = 796;
constexpr int kNoticeHeight = 24;
constexpr int kWindowWidth = 1012;

struct OutputLayout {
    QStringView name;
    QStringView caption;
    int x, width;
};
constexpr OutputLayout kOutputs[] = {
    {u"btn_印刷", u"印刷", 8, 116},
    {u"btn_プレビュ", u"プレビュ", 128, 116},
    {u"btn_テキスト出力", u"ﾃｷｽﾄ出力", 248, 116},
    {u"btn_封筒", u"封筒", 384, 116},
    {u"btn_はがき", u"はがき", 504, 116},
    {u"btn_宛名ラベル", u"宛名ラベル", 624, 116},
    {u"btn_終了", u"終了", 888, 116},
};

QStringList StopsOf(Kind id) { return {ConditionOf(id).item, ConditionOf(id).listItem}; }

/// Tab stops in tab order. The head's buttons come after all its items, so that the focus moves from an item that a
/// selection has disabled to the next item and not to a button.
QStringList TabStops() {
    QStringList stops;
    for (const TextCondition& text : TextConditions()) stops << text.item;
    stops << StopsOf(Kind::Enrolment) << StopsOf(Kind::StaffClass);
    for (const RangeCondition& range : RangeConditions()) stops << range.fromItem << range.toItem;
    stops << StopsOf(Kind::DisplayOrder) << u"btn_集計検索"_s << u"btn_画面クリア"_s;
    for (const TextCondition& text : TextConditions()) stops << text.selection.button;
    for (const RangeCondition& range : RangeConditions()) stops << range.selection.button;
    stops << u"ヘッド終了"_s << u"tab_詳細"_s;
    for (const OutputLayout& layout : kOutputs) stops << layout.name.toString();
    return stops;
}

/// To the right of the tab's titles.
void BuildStatusLine(Form& form) {
    const Control& tab = form.Item(u"tab_詳細"_s);
    const QRect area = tab.Widget().geometry();
    const int titles = tab.FocusWidget().sizeHint().width() + 12;
    auto* status = new StatusLine(form);
    status->setFont(SuiteFont(SuiteFace::PGothic, 11));
    status->setGeometry(area.x() + titles, area.y(), area.width() - titles, TabItem::kStripHeight);
}

}  // namespace

void BuildOutputPanel(Form& form) {
    for (const OutputLayout& layout : kOutputs) {
        auto* button = new Button(form, form, layout.name.toString(), layout.caption.toString());
        button->setFont(SuiteFont(SuiteFace::PGothic, 12));
        button->setGeometry(layout.x, kButtonTop, layout.width, kButtonHeight);
    }
    BuildStatusLine(form);
    auto* notice = new Panel(form, form, u"お知らせ"_s, -1, QString());
    notice->setFont(SuiteFont(SuiteFace::PGothic, 12));
    notice->SetEdgeless();
    notice->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    notice->setGeometry(0, kNoticeTop, kWindowWidth, kNoticeHeight);
}

void SetTabOrder(Form& form) {
    int index = 0;
    for (const QString& name : TabStops()) {
        form.Item(name).SetTabIndex(index++);
        form.Item(name).SetTabStop(true);
    }
}
