#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QtTest/QTest>
#include <memory>

#include "globals/ProgramGlobals.h"
#include "selection/wnd担当者複数指定.h"
#include "support/FormRobot.h"
#include "support/TestServices.h"

using namespace Qt::StringLiterals;

namespace {

const TextCondition& kNames = TextConditions()[0];
const TextCondition& kKana = TextConditions()[1];
const TextCondition& kPhones = TextConditions()[3];

/// A single value window.
class ValueWindowTest : public ::testing::Test {
  protected:
    wnd担当者複数指定& Open(const TextCondition& definition = kNames) {
        window.reset();
        window = std::make_unique<wnd担当者複数指定>(definition);
        window->ShowModeless();
        item = definition.valueItem;
        return *window;
    }
    Control& Row(int row) const { return window->Item(item, row); }
    void Narrow() const { window->Item(u"chb_絞込み"_s).SetValue(1); }
    QString Condition(const QString& column = u"氏名"_s) const {
        return window->BuildSelectionCondition(u"M担当者"_s, column);
    }
    QString Description() const { return window->DescribeSelection(); }
    void Type(int row, const QString& text) const {
        Row(row).SetFocus();
        for (const QChar sign : text)
            QTest::sendKeyEvent(QTest::Click, &Row(row).FocusWidget(), Qt::Key_unknown, sign, Qt::NoModifier);
    }
    void Paste(int row, const QString& text) const {
        QApplication::clipboard()->setText(text);
        Row(row).SetFocus();
        QTest::keyClick(&Row(row).FocusWidget(), Qt::Key_V, Qt::ControlModifier);
    }
    void Commit(int row, const QString& text) const {
        Row(row).SetFocus();
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(&Row(row).FocusWidget(), &event);
    }

    TestServices services;
    std::unique_ptr<wnd担当者複数指定> window;
    QString item;
};

}  // namespace

TEST_F(ValueWindowTest, EmptyRowsGiveNeitherConditionNorDescription) {
    Open();
    EXPECT_EQ(Condition(), QString());
    EXPECT_EQ(Description(), QString());
    Narrow();
    EXPECT_EQ(Condition(), QString());
    EXPECT_EQ(Description(), QString());
}

TEST_F(ValueWindowTest, FirstAndThirdRowAreJoinedOnceWithNoTraceOfTheGap) {
    Open();
    Row(0).SetText(u"山田"_s);
    Row(2).SetText(u"佐藤"_s);
    EXPECT_EQ(Condition(), u"(M担当者.氏名 LIKE '%山田%' OR M担当者.氏名 LIKE '%佐藤%')"_s);
    EXPECT_EQ(Description(), u"検索担当者名：山田,佐藤"_s);
}

TEST_F(ValueWindowTest, NarrowingJoinsTheRowsByAnd) {
    Open();
    Row(9).SetText(u"子"_s);
    Row(4).SetText(u"山"_s);
    Narrow();
    EXPECT_EQ(Condition(), u"(M担当者.氏名 LIKE '%山%' AND M担当者.氏名 LIKE '%子%')"_s);
    EXPECT_EQ(Description(), u"検索担当者名(絞込み)：山,子"_s);
}

TEST_F(ValueWindowTest, SingleRowThatNarrowsSaysSoAllTheSame) {
    Open();
    Row(0).SetText(u"x"_s);
    Narrow();
    EXPECT_EQ(Condition(), u"(M担当者.氏名 LIKE '%x%')"_s);
    EXPECT_EQ(Description(), u"検索担当者名(絞込み)：x"_s);
}

TEST_F(ValueWindowTest, QuoteIsDoubledInTheConditionAndNotInTheDescription) {
    Open();
    Row(0).SetText(u"O'Brien"_s);
    Row(1).SetText(u"''"_s);
    EXPECT_EQ(Condition(), u"(M担当者.氏名 LIKE '%O''Brien%' OR M担当者.氏名 LIKE '%''''%')"_s);
    EXPECT_EQ(Description(), u"検索担当者名：O'Brien,''"_s);
}

TEST_F(ValueWindowTest, PercentIsNotEscaped) {
    Open();
    Row(0).SetText(u"100%"_s);
    Row(1).SetText(u"_%_"_s);
    EXPECT_EQ(Condition(), u"(M担当者.氏名 LIKE '%100%%' OR M担当者.氏名 LIKE '%_%_%')"_s);
}

TEST_F(ValueWindowTest, BlanksAroundAValueAreTakenOffInBothTexts) {
    Open();
    Row(0).SetText(u"  山田 太郎   "_s);
    EXPECT_EQ(Condition(), u"(M担当者.氏名 LIKE '%山田 太郎%')"_s);
    EXPECT_EQ(Description(), u"検索担当者名：山田 太郎"_s);
}

TEST_F(ValueWindowTest, RowsOfBlanksCountAsEmptyAndAFullWidthBlankDoesNot) {
    Open();
    for (int row = 0; row < 10; ++row) Row(row).SetText(QString(30, u' '));
    EXPECT_EQ(Condition(), QString());
    EXPECT_EQ(Description(), QString());
    Row(5).SetText(u"　"_s);
    EXPECT_EQ(Condition(), u"(M担当者.氏名 LIKE '%　%')"_s);
}

TEST_F(ValueWindowTest, TenFullRowsGiveTenTermsInTheOrderOfTheRows) {
    Open();
    QStringList texts, terms;
    for (int row = 0; row < 10; ++row) {
        texts << QString(29, u'山') + QString::number(row);
        terms << u"M担当者.住所B LIKE '%"_s + texts.last() + u"%'"_s;
        Type(row, texts.last());
    }
    EXPECT_EQ(Condition(u"住所B"_s), u'(' + terms.join(u" OR "_s) + u')');
    EXPECT_EQ(Description(), u"検索担当者名："_s + texts.join(u","_s));
}

TEST_F(ValueWindowTest, EachWindowHasItsOwnTitleAndItsOwnWords) {
    const QList<QStringList> words = {
        {u"wnd担当者名複数指定"_s, u"担当者名"_s, u"担当者名複数指定"_s, u"検索担当者名：1,2"_s,
         u"検索担当者名(絞込み)：1,2"_s},
        {u"wnd担当者カナ複数指定"_s, u"担当者カナ"_s, u"担当者カナ複数指定"_s, u"検索担当者カナ：1,2"_s,
         u"検索担当者カナ(絞込み)：1,2"_s},
        {u"wnd担当者住所複数指定"_s, u"担当者住所"_s, u"担当者住所複数指定"_s, u"検索担当者住所：1,2"_s,
         u"検索担当者住所(絞込み)：1,2"_s},
        {u"wnd担当者電話複数指定"_s, u"担当者電話"_s, u"担当者電話複数指定"_s, u"検索担当者電話：1,2"_s,
         u"検索担当者電話(絞込み)：1,2"_s},
        {u"wnd担当者郵便番号複数指定"_s, u"担当者郵便番号"_s, u"担当者郵便番号複数指定"_s, u"検索担当者郵便番号：1,2"_s,
         u"検索担当者郵便番号(絞込み)：1,2"_s},
    };
    for (size_t i = 0; i < 5; ++i) {
        const QStringList& expected = words[static_cast<int>(i)];
        Open(TextConditions()[i]);
        EXPECT_EQ(window->Name(), expected[0]);
        EXPECT_EQ(item, expected[1]);
        EXPECT_EQ(window->windowTitle(), expected[2]);
        EXPECT_EQ(window->Item(u"itm_ttl"_s).Caption(), expected[2]);
        Row(0).SetText(u"1"_s);
        Row(1).SetText(u"2"_s);
        EXPECT_EQ(Description(), expected[3]);
        Narrow();
        EXPECT_EQ(Description(), expected[4]);
    }
}

TEST_F(ValueWindowTest, RowsAreNumberedFromOneToTenAndTheCommandsAreCaptioned) {
    Open();
    for (int row = 0; row < 10; ++row) {
        EXPECT_EQ(window->Item(u"Lab_行No"_s, row).Caption(), QString::number(row + 1));
        EXPECT_EQ(Row(row).Caption(), QString::number(row + 1));
        EXPECT_EQ(Row(row).MaxLength(), 30);
    }
    EXPECT_EQ(window->Find(item, 10), nullptr);
    EXPECT_EQ(window->Item(u"chb_絞込み"_s).Caption(), u"絞込み"_s);
    EXPECT_EQ(window->Item(u"btn_画面クリア"_s).Caption(), u"条件ｸﾘｱ"_s);
    EXPECT_EQ(window->Item(u"btn_戻る"_s).Caption(), u"戻る"_s);
}

TEST_F(ValueWindowTest, ControlsAreOfTheClassesAndNumbersOfTheDesign) {
    for (const TextCondition& definition : TextConditions()) {
        Open(definition);
        QHash<QString, int> count;
        for (const Control* control : window->Controls()) ++count[control->TypeName()];
        EXPECT_EQ(count, (QHash<QString, int>{
                             {u"xField"_s, 10}, {u"SSCommand"_s, 2}, {u"SSPanel"_s, 14}, {u"CheckBox"_s, 1}}));
    }
}

TEST_F(ValueWindowTest, EachWindowLetsItsOwnCharactersThrough) {
    const QString typed = u"山ア'ｶﾞa1-% ｡"_s;
    const QStringList kept = {typed, u"ｱｶﾞ｡"_s, typed, u"'1-%"_s, u"'1-%"_s};
    for (size_t i = 0; i < 5; ++i) {
        Open(TextConditions()[i]);
        Type(0, typed);
        EXPECT_EQ(Row(0).Text(), kept[static_cast<int>(i)]) << item.toStdString();
        Paste(1, typed);
        EXPECT_EQ(Row(1).Text(), kept[static_cast<int>(i)]) << item.toStdString();
    }
}

TEST_F(ValueWindowTest, OnlyTheKanaWindowNormalisesKana) {
    Open(kKana);
    Commit(0, u"がっこうパン"_s);
    EXPECT_EQ(Row(0).Text(), u"ｶﾞｯｺｳﾊﾟﾝ"_s);
    Paste(1, u"ヤマダ"_s);
    EXPECT_EQ(Condition(u"カナ"_s), u"(M担当者.カナ LIKE '%ｶﾞｯｺｳﾊﾟﾝ%' OR M担当者.カナ LIKE '%ﾔﾏﾀﾞ%')"_s);
    Open(kNames);
    Commit(0, u"がっこう"_s);
    EXPECT_EQ(Row(0).Text(), u"がっこう"_s);
    Paste(1, u"ヤマダ"_s);
    EXPECT_EQ(Row(1).Text(), u"ヤマダ"_s);
}

TEST_F(ValueWindowTest, EachWindowHasTheInputModeOfItsValuesInAllRows) {
    struct Mode {
        int mode;
        Qt::InputMethodHints hints;
        QString kept;
    };
    const QList<Mode> modes = {{1, Qt::ImhNone, u"がっこう1"_s},
                               {6, Qt::ImhNone, u"ｶﾞｯｺｳ"_s},
                               {1, Qt::ImhNone, u"がっこう1"_s},
                               {2, Qt::ImhPreferLatin, u"1"_s},
                               {2, Qt::ImhPreferLatin, u"1"_s}};
    for (size_t i = 0; i < 5; ++i) {
        const Mode& expected = modes[static_cast<int>(i)];
        Open(TextConditions()[i]);
        EXPECT_EQ(static_cast<int>(TextConditions()[i].valueDesign.imeMode), expected.mode) << item.toStdString();
        for (int row = 0; row < 10; ++row) {
            EXPECT_EQ(Row(row).Widget().inputMethodHints(), expected.hints) << item.toStdString() << row;
            EXPECT_EQ(static_cast<QLineEdit&>(Row(row).Widget()).inputMethodQuery(Qt::ImEnabled).toBool(),
                      expected.mode != 2)
                << item.toStdString() << row;
            Commit(row, u"がっこう1"_s);
            EXPECT_EQ(Row(row).Text(), expected.kept) << item.toStdString() << row;
        }
    }
}

TEST_F(ValueWindowTest, VoicedMarkIsACharacterOfItsOwn) {
    Open(kKana);
    Commit(0, QString(16, u'が'));
    EXPECT_EQ(Row(0).Text(), u"ｶﾞ"_s.repeated(15));
    Paste(1, u'ﾎ' + u"ｶﾞ"_s.repeated(20));
    EXPECT_EQ(Row(1).Text(), u'ﾎ' + u"ｶﾞ"_s.repeated(14) + u'ｶ');
}

TEST_F(ValueWindowTest, PastingAThousandCharactersKeepsThirty) {
    for (const auto& [definition, sign] : {std::pair(&kNames, u'山'), {&kKana, u'ｱ'}, {&kPhones, u'0'}}) {
        Open(*definition);
        Paste(0, QString(1000, sign));
        EXPECT_EQ(Row(0).Text(), QString(30, sign));
        EXPECT_EQ(Condition(), u"(M担当者.氏名 LIKE '%"_s + QString(30, sign) + u"%')"_s);
    }
}

TEST_F(ValueWindowTest, PastedLinesBecomeOneRow) {
    Open();
    Paste(0, u"山田\n佐藤\t鈴木\r\n"_s);
    EXPECT_EQ(Row(0).Text(), u"山田佐藤鈴木"_s);
    EXPECT_EQ(Row(1).Text(), QString());
}

TEST_F(ValueWindowTest, ClearEmptiesAllRowsAndUnchecksTheBox) {
    Open();
    for (int row = 0; row < 10; ++row) Row(row).SetText(u"値"_s);
    Narrow();
    QTest::mouseClick(&window->Item(u"btn_画面クリア"_s).FocusWidget(), Qt::LeftButton);
    for (int row = 0; row < 10; ++row) EXPECT_EQ(Row(row).Text(), QString());
    EXPECT_EQ(window->Item(u"chb_絞込み"_s).Value(), 0);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(ValueWindowTest, TabAndEnterGoDownTheRowsAndOnToTheCommands) {
    Open();
    QStringList road;
    for (int step = 0; step < 14; ++step) {
        const Control* active = window->ActiveControl();
        ASSERT_NE(active, nullptr);
        road << active->Name() + (active->Index() < 0 ? QString() : QString::number(active->Index()));
        const Qt::Key key = step % 2 == 0 && step < 10 ? Qt::Key_Return : Qt::Key_Tab;
        QTest::keyClick(&window->ActiveControl()->FocusWidget(), key);
    }
    QStringList expected;
    for (int row = 0; row < 10; ++row) expected << u"担当者名"_s + QString::number(row);
    expected << u"chb_絞込み"_s << u"btn_画面クリア"_s << u"btn_戻る"_s << u"担当者名0"_s;
    EXPECT_EQ(road, expected);
}

TEST_F(ValueWindowTest, SelectionIsKnownUnderTheWindowsNameFromLoadToUnload) {
    const QString name = kPhones.selection.window;
    auto* first = new wnd担当者複数指定(kPhones);
    EXPECT_FALSE(Globals().SelectionWindows.contains(name));
    first->ShowModeless();
    EXPECT_EQ(Globals().SelectionWindows.value(name), first);
    first->HideForm();
    EXPECT_EQ(Globals().SelectionWindows.value(name), first);
    first->UnloadForm();
    EXPECT_FALSE(Globals().SelectionWindows.contains(name));
    // The unloaded window is deleted later and must not unregister its successor.
    Open(kPhones);
    QCoreApplication::sendPostedEvents(first, QEvent::DeferredDelete);
    EXPECT_EQ(Globals().SelectionWindows.value(name), window.get());
    window.reset();
    EXPECT_FALSE(Globals().SelectionWindows.contains(name));
}
