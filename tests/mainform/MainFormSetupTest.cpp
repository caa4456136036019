#include <QEvent>
#include <QThread>
#include <QTimer>
#include <functional>

#include "globals/ProgramGlobals.h"
#include "inquiry/ConditionProcedures.h"
#include "mainform/frm要員名簿照会.h"
#include "screen/Form.h"
#include "screen/modクライアント処理.h"
#include "support/MainFormFixture.h"

using namespace Qt::StringLiterals;

namespace {

class FormSetupTest : public MainFormTest {
  protected:
    /// Reading a PIN takes long enough for the search to process events again.
    class SlowPins : public platform::UnsealedPins {
      public:
        void Check(const QString& /*stored*/) override { QThread::msleep(2); }
    };

    /// Searches and calls back once during the search.
    void DuringASearch(const std::function<void()>& callback) {
        bool seen = false;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            // Events are first processed to paint the wait dialog.
            if (Item(u"検索名称"_s).Enabled()) return;
            seen = true;
            callback();
        });
        timer.start(0);
        Item(u"btn_集計検索"_s).Click();
        EXPECT_TRUE(seen);
    }
};

}  // namespace

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

TEST_F(FormSetupTest, ControlsAreOfTheClassesAndNumbersOfTheDesign) {
    Start();
    QMap<QString, int> count;
    for (const Control* control : MainForm().Controls()) ++count[control->TypeName()];
    EXPECT_EQ(count, (QMap<QString, int>{{u"xField"_s, 245},
                                         {u"xNum"_s, 3},
                                         {u"xKana"_s, 8},
                                         {u"xTel"_s, 16},
                                         {u"xZip"_s, 8},
                                         {u"xText"_s, 8},
                                         {u"xLabel"_s, 76},
                                         {u"SSCommand"_s, 19},
                                         {u"SSPanel"_s, 148},
                                         {u"SSTab"_s, 1},
                                         {u"ComboBox"_s, 3},
                                         {u"CheckBox"_s, 8},
                                         {u"VScrollBar"_s, 1}}));
}

TEST_F(FormSetupTest, LoadReplacesDesignTimeCodesByTheConditions) {
    QStringList items, designed, loaded;
    for (const RangeCondition& range : RangeConditions()) items << range.fromItem << range.toItem;
    {
        const frm要員名簿照会 form([] {});
        for (const QString& item : items) designed << form.Item(item).Text();
    }
    EXPECT_EQ(designed,
              QStringList({u"000"_s, u"000"_s, u"000"_s, u"000"_s, u"00"_s, u"00"_s, u"00000"_s, u"00000"_s}));
    class FirstSight : public QObject {
      public:
        explicit FirstSight(std::function<void(const Form&)> callback) : callback_(std::move(callback)) {
            QCoreApplication::instance()->installEventFilter(this);
        }
        bool eventFilter(QObject* object, QEvent* event) override {
            const auto* form = dynamic_cast<frm要員名簿照会*>(object);
            if (event->type() == QEvent::Show && form != nullptr && callback_) std::exchange(callback_, {})(*form);
            return false;
        }

      private:
        std::function<void(const Form&)> callback_;
    };
    const FirstSight sight([&](const Form& form) {
        for (const QString& item : items) loaded << form.Item(item).Text();
        loaded << form.Item(u"行No"_s, 0).Text();
    });
    Start();
    EXPECT_EQ(loaded,
              QStringList({u"000"_s, u"999"_s, u"000"_s, u"999"_s, u"00"_s, u"99"_s, u"00000"_s, u"99999"_s, u"1"_s}));
}

TEST_F(FormSetupTest, ListsAreFilledAndBounded) {
    Start();
    EXPECT_EQ(MainForm().windowTitle(), u"要員名簿照会（見本商事株式会社）"_s);
    EXPECT_EQ(Item(u"scl_行"_s).LargeChange(), 8);
    EXPECT_EQ(Item(u"tab_詳細"_s).Value(), 0);
    for (const QString& kind : {u"在籍区分"_s, u"社員区分"_s}) {
        const auto rows = installation.General().Rows(u"SELECT 区分 FROM K"_s + kind).size();
        EXPECT_EQ(Item(kind).MinValue(), 0);
        EXPECT_EQ(Item(kind).MaxValue(), rows);
        const auto names = installation.General().Rows(u"SELECT 名称 FROM K"_s + kind + u" ORDER BY 区分"_s);
        for (int place = 0; place < rows; ++place) {
            Item(kind).SetValue(place);
            EXPECT_EQ(Item(kind + u"名称"_s).Text(), names[place].first());
        }
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
    DuringASearch([this] {
        EXPECT_TRUE(IsFormLoaded(u"msgお待ち"_s));
        EXPECT_FALSE(Item(u"btn_終了"_s).Enabled());
        EXPECT_FALSE(Item(u"manualpanel"_s).Enabled());
        EXPECT_FALSE(Item(u"scl_行"_s).Enabled());
        EXPECT_FALSE(Item(u"tab_詳細"_s).Enabled());
        EXPECT_EQ(Focused(), QString());
    });
    EXPECT_FALSE(IsFormLoaded(u"msgお待ち"_s));
    EXPECT_TRUE(Item(u"btn_終了"_s).Enabled());
    EXPECT_EQ(Focused(), u"検索名称"_s);
}

TEST_F(FormSetupTest, TitleClickDuringASearchDoesNotEnableTheOutputs) {
    Start();
    platform::Services().pins = std::make_unique<SlowPins>();
    int clicks = 0;
    DuringASearch([&] {
        for (const QString& name : {u"itm_ttl_在籍区分"_s, u"itm_ttl_社員区分"_s, u"itm_ttl_表示順区分"_s}) {
            EXPECT_FALSE(Item(name).Enabled()) << name.toStdString();
            Click(name);
        }
        clicks += Globals().LastRow >= 0 ? 1 : 0;
        EXPECT_FALSE(Item(u"btn_印刷"_s).Enabled());
        EXPECT_TRUE(services.dialogs.shown.isEmpty());
    });
    EXPECT_GE(clicks, 1) << "no click while there were rows";
    EXPECT_TRUE(Item(u"itm_ttl_在籍区分"_s).Enabled());
    EXPECT_TRUE(Item(u"btn_印刷"_s).Enabled());
}

TEST_F(FormSetupTest, LabelsStayEnabledDuringASearchWhileThePanelsAroundAreNot) {
    Start();
    DuringASearch([this] {
        EXPECT_TRUE(Item(u"lab_範囲"_s, 0).Enabled());
        EXPECT_TRUE(Item(u"lab_生年月日年"_s, 0).Enabled());
        EXPECT_FALSE(Item(u"lab_生年月日年"_s, 0).Widget().isEnabled()) << "a click does not reach it";
        EXPECT_FALSE(Item(u"itm_ttl_性別"_s, 0).Enabled());
    });
}

TEST_F(FormSetupTest, EveryCaptionIsAsTheUsersKnowIt) {
    Start();
    const QList<QPair<QString, QString>> captions = {
        {u"btn_集計検索"_s, u"検索"_s},
        {u"btn_画面クリア"_s, u"画面ｸﾘｱ"_s},
        {u"btn_印刷"_s, u"印刷"_s},
        {u"btn_プレビュ"_s, u"プレビュ"_s},
        {u"btn_テキスト出力"_s, u"ﾃｷｽﾄ出力"_s},
        {u"btn_封筒"_s, u"封筒"_s},
        {u"btn_はがき"_s, u"はがき"_s},
        {u"btn_宛名ラベル"_s, u"宛名ラベル"_s},
        {u"btn_終了"_s, u"終了"_s},
        {u"manualpanel"_s, u"Manual"_s},
        {u"btn_名称複数指定"_s, u"名称複数指定"_s},
        {u"btn_カナ複数指定"_s, u"カナ複数指定"_s},
        {u"btn_住所複数指定"_s, u"住所複数指定"_s},
        {u"btn_電話複数指定"_s, u"電話複数指定"_s},
        {u"btn_郵便番号複数指定"_s, u"郵便番号複数指定"_s},
        {u"itm_ttl_行No"_s, u"行No"_s},
        {u"itm_ttl_担当者"_s, u"コード/氏名/カナ"_s},
        {u"itm_ttl_所属"_s, u"所属"_s},
        {u"itm_ttl_役職"_s, u"役職/在籍/社員区分"_s},
        {u"itm_ttl_日付"_s, u"生年月日/入社日付/退職日付"_s},
        {u"itm_ttl_住所"_s, u"住所"_s},
        {u"itm_ttl_連絡先"_s, u"連絡先"_s},
        {u"itm_ttl_メモ"_s, u"メモ"_s},
        {u"itm_ttl_登録更新日付"_s, u"登録・更新日付"_s},
    };
    for (const auto& [name, caption] : captions) EXPECT_EQ(Item(name).Caption(), caption) << name.toStdString();
    const QList<QPair<QString, QString>> rowCaptions = {
        {u"itm_ttl_性別"_s, u"性別"_s},    {u"itm_ttl_電話"_s, u"ＴＥＬ"_s},   {u"itm_ttl_携帯電話"_s, u"携帯"_s},
        {u"itm_ttl_EMAIL"_s, u"E-mail"_s}, {u"itm_ttl_登録日付"_s, u"登録"_s}, {u"itm_ttl_更新日付"_s, u"更新"_s},
    };
    for (const auto& [name, caption] : rowCaptions) EXPECT_EQ(Item(name, 7).Caption(), caption) << name.toStdString();
}

TEST_F(FormSetupTest, HeadAnswersNothingWhileASiblingIsAwaited) {
    Start();
    Item(u"検索名称"_s).SetFocus();
    Globals().Conditions.DepartmentTo.clear();
    Globals().LinkWaiting = true;
    Item(u"検索名称"_s).SetText(QString(20, u'あ'));
    EXPECT_EQ(Item(u"お知らせ"_s).Caption(), QString());
    Item(u"開始セクションコード"_s).SetFocus();
    EXPECT_EQ(Focused(), u"開始セクションコード"_s);
    EXPECT_EQ(Globals().Conditions.SearchName, QString());
    Item(u"開始セクションコード"_s).SetText(u"5"_s);
    Item(u"在籍区分"_s).SetFocus();
    EXPECT_EQ(Focused(), u"在籍区分"_s);
    EXPECT_EQ(Item(u"開始セクションコード"_s).Text(), u"5"_s);
    EXPECT_EQ(Globals().Conditions.SectionFrom, u"000"_s);
    Item(u"在籍区分"_s).SetValue(1);
    Item(u"社員区分名称"_s).SetListIndex(0);
    Item(u"検索カナ"_s).SetFocus();
    EXPECT_EQ(Globals().Conditions.EnrolmentKind, 0);
    EXPECT_EQ(Item(u"社員区分"_s).Value(), Item(u"社員区分"_s).MaxValue());
    EXPECT_EQ(Globals().LastHeadItem, &Item(u"検索名称"_s));
    Item(u"ヘッド終了"_s).SetFocus();
    EXPECT_EQ(Focused(), u"ヘッド終了"_s);
}

TEST_F(FormSetupTest, ClassItemsBecomeTheLastHeadItem) {
    Start();
    for (const QString& name :
         {u"在籍区分"_s, u"在籍区分名称"_s, u"表示順区分名称"_s, u"終了担当者コード"_s, u"検索住所"_s}) {
        Item(name).SetFocus();
        Item(u"btn_終了"_s).SetFocus();
        EXPECT_EQ(Globals().LastHeadItem, &Item(name)) << name.toStdString();
    }
}
