#include <QAccessible>
#include <QtTest/QTest>

#include "screen/Button.h"
#include "screen/CheckItem.h"
#include "screen/ComboItem.h"
#include "screen/DisplayItem.h"
#include "screen/Label.h"
#include "screen/NumItem.h"
#include "screen/ScreenTest.h"
#include "screen/TabItem.h"

using namespace Qt::StringLiterals;

class Access : public ScreenTest {
  protected:
    ThreeItems form;

    static QString Read(QWidget& widget, QAccessible::Text kind) {
        return QAccessible::queryAccessibleInterface(&widget)->text(kind);
    }
    static QString NameOf(QWidget& widget) { return Read(widget, QAccessible::Name); }
    static QString DescriptionOf(QWidget& widget) { return Read(widget, QAccessible::Description); }
};

TEST_F(Access, ButtonsAndItemsBearTheControlsNameAndCarryTheCaptionAsDescription) {
    Button button(form, form, u"btn_集計検索"_s, u"検索"_s);
    CheckItem box(form, form, u"chb_絞込み"_s, -1, u"絞込み"_s);
    form.first.SetCaption(u"名称"_s);
    form.first.SetText(u"山田"_s);
    form.panel.SetCaption(u"台紙"_s);
    ShowActive(form);
    EXPECT_EQ(NameOf(button), u"btn_集計検索"_s);
    EXPECT_EQ(DescriptionOf(button), u"検索"_s);
    EXPECT_EQ(NameOf(box), u"chb_絞込み"_s);
    EXPECT_EQ(DescriptionOf(box), u"絞込み"_s);
    EXPECT_EQ(NameOf(form.first), u"一"_s);
    EXPECT_EQ(DescriptionOf(form.first), u"名称"_s);
    EXPECT_EQ(NameOf(form.panel), u"台"_s);
    EXPECT_EQ(DescriptionOf(form.panel), u"台紙"_s);
    button.SetCaption(u"再検索"_s);
    EXPECT_EQ(DescriptionOf(button), u"再検索"_s);
}

TEST_F(Access, LabelsKeepTheirTextAsNameAndTheControlsNameAsDescription) {
    Label notice(form, form, u"お知らせ"_s, -1, QString());
    ShowActive(form);
    notice.SetCaption(u"文字オーバーです。"_s);
    EXPECT_EQ(NameOf(notice), u"文字オーバーです。"_s);
    EXPECT_EQ(DescriptionOf(notice), u"お知らせ"_s);
    notice.SetCaption(QString());
    EXPECT_EQ(NameOf(notice), QString());
}

TEST_F(Access, HiddenItemGivesNoTextAtAll) {
    DisplayItem pin(form, form.panel, u"xField"_s, u"暗証番号"_s, 0);
    pin.SetText(u"1234"_s);
    ShowActive(form);
    EXPECT_EQ(NameOf(pin), u"1234"_s);
    EXPECT_EQ(DescriptionOf(pin), u"暗証番号"_s);
    pin.SetVisible(false);
    for (const auto kind : {QAccessible::Name, QAccessible::Value, QAccessible::Help, QAccessible::Accelerator})
        EXPECT_EQ(Read(pin, kind), QString());
    pin.SetVisible(true);
    form.panel.SetVisible(false);
    EXPECT_EQ(NameOf(pin), QString());
}

TEST_F(Access, EveryStopOfTheTabChainHasANameForwardAndBack) {
    Button button(form, form, u"釦"_s, u"釦"_s);
    CheckItem box(form, form, u"箱"_s, -1, QString());
    ComboItem combo(form, form, u"表"_s);
    NumItem number(form, form, u"数"_s);
    TabItem tab(form, form, u"頁"_s);
    tab.AddPage(u"所属情報"_s);
    ShowActive(form);
    const auto walk = [this](bool forward) {
        QStringList names;
        for (int step = 0; step < 8; ++step) {
            EXPECT_NE(NameOf(form.ActiveControl()->FocusWidget()), QString());
            names << form.ActiveControl()->Name();
            form.MoveToNextStop(forward);
        }
        return names;
    };
    const QStringList chain = {u"一"_s, u"二"_s, u"三"_s, u"釦"_s, u"箱"_s, u"表"_s, u"数"_s, u"頁"_s};
    EXPECT_EQ(walk(true), chain);
    EXPECT_EQ(form.ActiveControl(), &form.first);
    form.MoveToNextStop(false);
    EXPECT_EQ(walk(false), QStringList(chain.rbegin(), chain.rend()));
}
