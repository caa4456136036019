#include <QAccessible>
#include <QComboBox>
#include <QtTest/QTest>

#include "screen/InputItem.h"
#include "screen/Labels.h"
#include "screen/PlainControls.h"
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

TEST_F(Access, ButtonsAndItemsHaveNameAndCaptionAsDescription) {
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

TEST_F(Access, TitleWithoutChildrenIsALabel) {
    Panel title(form, form, u"itm_ttl_性別"_s, 0, u"性別"_s);
    title.SetTitle();
    ShowActive(form);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&title)->role(), QAccessible::StaticText);
    EXPECT_EQ(NameOf(title), u"性別"_s);
    EXPECT_EQ(DescriptionOf(title), u"itm_ttl_性別"_s);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&form.panel)->role(), QAccessible::Grouping);
}

TEST_F(Access, RowPanelIsDescribedByItsTexts) {
    const auto put = [this](const QString& name, const QString& text, int x, int y) {
        auto* item = new DisplayItem(form, form.panel, u"xField"_s, name, 0);
        item->setGeometry(x, y, 20, 10);
        item->SetText(text);
        return item;
    };
    put(u"カナ"_s, u"ﾔﾏﾀﾞ"_s, 0, 20);
    DisplayItem* pin = put(u"暗証番号"_s, u"7EGK"_s, 30, 0);
    put(u"担当者コード"_s, u"00014"_s, 0, 0);
    DisplayItem* name = put(u"担当者名"_s, u"山田"_s, 0, 10);
    form.panel.SetCaption(QString());
    ShowActive(form);
    EXPECT_EQ(NameOf(form.panel), u"台"_s);
    EXPECT_EQ(DescriptionOf(form.panel), u"00014 7EGK 山田 ﾔﾏﾀﾞ"_s);
    pin->SetVisible(false);
    name->SetText(QString());
    EXPECT_EQ(DescriptionOf(form.panel), u"00014 ﾔﾏﾀﾞ"_s);
    form.panel.SetVisible(false);
    EXPECT_EQ(DescriptionOf(form.panel), QString());
}

TEST_F(Access, ComboBoxHasItsNameAndCurrentEntry) {
    ComboItem combo(form, form, u"在籍区分名称"_s);
    combo.AddItem(u"在籍"_s);
    combo.AddItem(u"退職"_s);
    ShowActive(form);
    EXPECT_EQ(NameOf(combo), u"在籍区分名称"_s);
    EXPECT_EQ(DescriptionOf(combo), QString());
    combo.SetListIndex(1);
    EXPECT_EQ(NameOf(combo), u"在籍区分名称"_s);
    EXPECT_EQ(DescriptionOf(combo), u"退職"_s);
    EXPECT_EQ(Read(combo, QAccessible::Value), u"退職"_s);
    const QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&combo);
    EXPECT_EQ(access->role(), QAccessible::ComboBox);
    ASSERT_EQ(access->childCount(), 1);
    EXPECT_EQ(access->child(0)->role(), QAccessible::List);
    EXPECT_EQ(access->child(0)->childCount(), 2);
    EXPECT_EQ(access->indexOfChild(access->child(0)), 0);
    EXPECT_EQ(access->child(1), nullptr);
}

TEST_F(Access, ComboBoxWithoutNameUsesItsEntry) {
    const ComboItem known(form, form, u"区分"_s);  // installs the accessible interface of all combo boxes
    QComboBox list;
    list.addItem(u"CSV ファイル"_s);
    EXPECT_EQ(NameOf(list), u"CSV ファイル"_s);
    EXPECT_EQ(DescriptionOf(list), QString());
    list.setAccessibleName(u"ファイルの種類"_s);
    EXPECT_EQ(NameOf(list), u"ファイルの種類"_s);
    EXPECT_EQ(DescriptionOf(list), u"CSV ファイル"_s);
}

TEST_F(Access, ScreenReaderDropsAListDownAndLeavesADisabledOneShut) {
    ComboItem combo(form, form, u"在籍区分名称"_s);
    combo.AddItem(u"在籍"_s);
    ShowActive(form);
    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&combo);
    const auto press = [access] { access->actionInterface()->doAction(QAccessibleActionInterface::pressAction()); };
    press();
    EXPECT_TRUE(QTest::qWaitFor([&] { return bool(access->state().expanded); }));
    press();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !access->state().expanded; }));
    form.SetEnabled(false);
    press();
    EXPECT_FALSE(access->state().expanded);
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
