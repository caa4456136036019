#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>
#include <QtTest/QTest>

#include "screen/ListView.h"
#include "screen/PlainControls.h"
#include "screen/ScreenTest.h"
#include "screen/TabItem.h"

using namespace Qt::StringLiterals;

namespace {

class AccessibleForm : public ScreenTest {
  protected:
    ThreeItems form;

    static QAccessibleInterface* Of(QWidget& widget) { return QAccessible::queryAccessibleInterface(&widget); }
    static bool Disabled(QWidget& widget) { return Of(widget)->state().disabled; }
};

}  // namespace

TEST_F(AccessibleForm, DisabledFormAndEverythingInItIsDisabled) {
    Button button(form, form, u"btn_集計検索"_s, u"検索"_s);
    CheckItem box(form, form, u"chb_出力対象"_s, 0, QString());
    ComboItem combo(form, form, u"在籍区分名称"_s);
    ListView list(form, form, u"一覧"_s);
    TabItem tab(form, form, u"tab_詳細"_s);
    DisplayItem name(form, form.panel, u"xField"_s, u"担当者名"_s, 0);
    ShowActive(form);
    const QList<QWidget*> widgets = {&form,  &form.panel, &form.first, &form.second,       &button, &box,
                                     &combo, &list,       &tab,        &tab.FocusWidget(), &name};
    for (const bool enabled : {true, false, true}) {
        form.SetEnabled(enabled);
        for (QWidget* widget : widgets) EXPECT_NE(Disabled(*widget), enabled) << widget->objectName().toStdString();
    }
}

TEST_F(AccessibleForm, ItemThatIsDisabledStaysSoInAnEnabledForm) {
    form.second.SetEnabled(false);
    ShowActive(form);
    EXPECT_TRUE(Disabled(form.second));
    EXPECT_FALSE(Disabled(form.first));
}

TEST_F(AccessibleForm, RowsOutsideOfTheirPageAreNotInTheTree) {
    TabItem tab(form, form, u"tab_詳細"_s);
    QWidget& page = tab.AddPage(u"所属情報"_s);
    QList<Panel*> rows;
    for (int position = 0; position < 4; ++position) {
        rows << new Panel(form, page, u"bak_dtlb"_s, position, QString());
        rows.last()->setGeometry(0, position * 20, 50, 20);
    }
    tab.setGeometry(0, 0, 60, TabItem::kStripHeight + 80);
    ShowActive(form);
    EXPECT_EQ(Of(page)->childCount(), 4);
    // Two pixels of the third row stay visible.
    tab.resize(60, TabItem::kStripHeight + 42);
    ASSERT_EQ(Of(page)->childCount(), 2);
    EXPECT_EQ(Of(page)->child(0)->object(), rows[0]);
    EXPECT_EQ(Of(page)->child(1)->object(), rows[1]);
    EXPECT_EQ(Of(page)->child(2), nullptr);
    EXPECT_EQ(Of(page)->indexOfChild(Of(*rows[1])), 1);
    EXPECT_EQ(Of(page)->indexOfChild(Of(*rows[2])), -1);
}

TEST_F(AccessibleForm, TextsAndActionsAreThoseOfTheWidgets) {
    int clicks = 0;
    Button button(form, form, u"btn_集計検索"_s, u"検索"_s);
    button.Click = [&] { ++clicks; };
    form.first.SetText(u"山田"_s);
    ShowActive(form);
    Of(button)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicks == 1; }));
    EXPECT_EQ(Of(button)->role(), QAccessible::PushButton);
    EXPECT_EQ(Of(form.first)->textInterface()->text(0, 2), u"山田"_s);
    EXPECT_EQ(Of(form.first)->parent()->object(), &form);
}

TEST_F(AccessibleForm, InterfaceEndsWithItsWidget) {
    auto* item = new InputItem(form, form, u"xField"_s, u"四"_s, -1, {});
    ShowActive(form);
    const QAccessible::Id id = QAccessible::uniqueId(Of(*item));
    const int children = Of(form)->childCount();
    delete item;
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
    EXPECT_EQ(Of(form)->childCount(), children - 1);
}
