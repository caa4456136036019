#include <QTimer>

#include "frame/MainFormFixture.h"
#include "frame/ProgramGlobals.h"
#include "inquiry/frm要員名簿照会.h"
#include "screen/Form.h"
#include "screen/modクライアント処理.h"

using namespace Qt::StringLiterals;

using FormSetupTest = MainFormTest;

TEST_F(FormSetupTest, WindowEndsBelowTheNoticeByAMarginOfTheSystemsVersion) {
    struct Case {
        std::optional<platform::SystemVersion> version;
        int margin;
    };
    const platform::SystemVersion versions[] = {{6, 0}, {6, 1}, {6, 2}, {6, 3}, {10, 0}, {5, 1}};
    const int margins[] = {420, 420, 440, 380, 380, 380};
    for (int i = -1; i < 6; ++i) {
        if (i >= 0) services.system.version = versions[i];
        Start();
        const int below = Item(u"お知らせ"_s).Top() + Item(u"お知らせ"_s).Height();
        EXPECT_NEAR(MainForm().WindowHeight(), below + (i < 0 ? 420 : margins[i]), kTwipsPerPixel) << i;
        EXPECT_EQ(MainForm().width() * kTwipsPerPixel, Item(u"お知らせ"_s).Width());
        TearDown();
        ResetGlobals();
    }
}

TEST_F(FormSetupTest, ListsAreFilledAndBounded) {
    Start();
    EXPECT_EQ(MainForm().windowTitle(), u"要員名簿照会（）"_s);
    EXPECT_EQ(Item(u"scl_行"_s).LargeChange(), 8);
    EXPECT_EQ(Item(u"tab_詳細"_s).Value(), 0);
    for (const QString& kind : {u"在籍区分"_s, u"社員区分"_s}) {
        const auto rows = installation.General().Rows(u"SELECT 区分 FROM K"_s + kind).size();
        EXPECT_EQ(Item(kind).MinValue(), 0);
        EXPECT_EQ(Item(kind).MaxValue(), rows);
        Item(kind).SetValue(static_cast<int>(rows));
        EXPECT_EQ(Item(kind + u"名称"_s).Text(), u"全て"_s);
    }
    const QStringList orders = {u"担当者コード順"_s, u"所属コード順"_s, u"名称順"_s, u"カナ順"_s, u"郵便番号順"_s};
    for (int order = 0; order < orders.size(); ++order) {
        Item(u"表示順区分"_s).SetValue(order);
        EXPECT_EQ(Item(u"表示順区分名称"_s).Text(), orders[order]);
    }
    EXPECT_EQ(Item(u"表示順区分"_s).MaxValue(), 5);
}

TEST_F(FormSetupTest, SearchShowsTheNoticeAndDisablesTheFormWhileItLoads) {
    Start();
    bool seen = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        // Events pass once before, so that the notice paints.
        if (Item(u"検索名称"_s).Enabled()) return;
        seen = true;
        EXPECT_TRUE(IsFormLoaded(u"msgお待ち"_s));
        EXPECT_FALSE(Item(u"btn_終了"_s).Enabled());
        EXPECT_FALSE(Item(u"manualpanel"_s).Enabled());
        EXPECT_FALSE(Item(u"scl_行"_s).Enabled());
        EXPECT_FALSE(Item(u"tab_詳細"_s).Enabled());
        EXPECT_EQ(Focused(), QString());
    });
    timer.start(0);
    Item(u"btn_集計検索"_s).Click();
    EXPECT_TRUE(seen);
    EXPECT_FALSE(IsFormLoaded(u"msgお待ち"_s));
    EXPECT_TRUE(Item(u"btn_終了"_s).Enabled());
    EXPECT_EQ(Focused(), u"検索名称"_s);
}
