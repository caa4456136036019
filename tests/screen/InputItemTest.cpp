#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <QtTest/QTest>

#include "screen/ScreenTest.h"

using namespace Qt::StringLiterals;

namespace {

constexpr CharacterClasses kHalfWidth = CharacterClass::Kana | CharacterClass::Lower | CharacterClass::Num |
                                        CharacterClass::NumExt | CharacterClass::Space | CharacterClass::Symbol |
                                        CharacterClass::Upper;

ItemDesign Design(int maxLength, CharacterClasses classes = CharacterClass::All, ImeMode mode = ImeMode::None) {
    ItemDesign design;
    design.maxLength = maxLength;
    design.classes = classes;
    design.imeMode = mode;
    return design;
}

}  // namespace

class InputItemTest : public ScreenTest {
  protected:
    Form form{u"入力"_s};
    int changes = 0;

    InputItem& Make(const ItemDesign& design, const QString& type = u"xField"_s) {
        auto* item = new InputItem(form, form, type, u"項目"_s, -1, design);
        item->setGeometry(10, 10, 200, 24);
        item->Change = [this] { ++changes; };
        ShowActive(form);
        item->show();
        item->SetFocus();
        return *item;
    }
    static void Paste(InputItem& item, const QString& text) {
        QApplication::clipboard()->setText(text);
        Press(item, Qt::Key_V, Qt::ControlModifier);
    }
};

TEST_F(InputItemTest, ShowsItsDesignTextUntilTheProgramWrites) {
    ItemDesign design = Design(3, CharacterClass::Num);
    design.text = u"000"_s;
    design.maxValue = 999;
    InputItem& item = Make(design);
    EXPECT_EQ(item.Text(), u"000"_s);
    EXPECT_EQ(item.MaxLength(), 3);
    EXPECT_EQ(item.MaxValue(), 999);
    item.SetText(u"120"_s);
    EXPECT_EQ(item.Text(), u"120"_s);
}

TEST_F(InputItemTest, TypingStopsAtMaxLengthCharacters) {
    InputItem& item = Make(Design(3));
    Type(item, u"あいうえ"_s);
    EXPECT_EQ(item.Text(), u"あいう"_s);
    EXPECT_EQ(changes, 3);
}

TEST_F(InputItemTest, TypingOverASelectionCountsWhatIsLeft) {
    InputItem& item = Make(Design(3));
    Type(item, u"123"_s);
    item.setSelection(1, 1);
    Type(item, u"xy"_s);
    EXPECT_EQ(item.Text(), u"1x3"_s);
}

TEST_F(InputItemTest, PastingObeysTheSameLimit) {
    InputItem& item = Make(Design(5, CharacterClass::Num));
    Paste(item, u"12-34a567８"_s);
    EXPECT_EQ(item.Text(), u"12345"_s);
    EXPECT_EQ(changes, 1);
}

TEST_F(InputItemTest, PastingNothingThatFitsLeavesTheSelection) {
    InputItem& item = Make(Design(5, CharacterClass::Num));
    Type(item, u"12"_s);
    item.selectAll();
    Paste(item, u"あ"_s);
    EXPECT_EQ(item.Text(), u"12"_s);
    EXPECT_EQ(item.selectedText(), u"12"_s);
}

TEST_F(InputItemTest, SurrogatePairIsNotCutInTwo) {
    InputItem& item = Make(Design(3));
    Paste(item, u"あい𠮷"_s);
    EXPECT_EQ(item.Text(), u"あい"_s);
    item.SetText(QString());
    Paste(item, u"あ𠮷い"_s);
    EXPECT_EQ(item.Text(), u"あ𠮷"_s);
}

TEST_F(InputItemTest, ProgramWritesAreNeverCut) {
    InputItem& item = Make(Design(3, CharacterClass::Num));
    const QString longText(40000, u'あ');
    item.SetText(longText);
    EXPECT_EQ(item.Text(), longText);
    Type(item, u"1"_s);  // nothing is selected any more, and the limit is reached
    EXPECT_EQ(item.Text(), longText);
}

TEST_F(InputItemTest, DroppedTextObeysTheLimitAndMovesTheFocus) {
    InputItem& item = Make(Design(3, CharacterClass::Num));
    InputItem other(form, form, u"xField"_s, u"他"_s, -1, Design(2));
    other.setGeometry(10, 50, 100, 24);
    other.show();
    QMimeData data;
    data.setText(u"あいう"_s);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    other.event(&drop);
    EXPECT_EQ(other.Text(), u"あい"_s);
    EXPECT_EQ(form.ActiveControl(), &other);
    EXPECT_EQ(item.Text(), QString());
}

TEST_F(InputItemTest, TextSetByAScreenReaderObeysTheLimit) {
    InputItem& item = Make(Design(3, CharacterClass::Num));
    QAccessible::queryAccessibleInterface(&item)->setText(QAccessible::Value, u"1あ2345"_s);
    EXPECT_EQ(item.Text(), u"123"_s);
    EXPECT_EQ(changes, 1);
}

TEST_F(InputItemTest, TelephoneRefusesDoubleByteCharactersAndNameTakesAll) {
    InputItem& telephone = Make(Design(16, kHalfWidth, ImeMode::Disabled));
    Type(telephone, u"03-１２あ漢 (ｱ)aZ"_s);
    EXPECT_EQ(telephone.Text(), u"03-12 (ｱ)aZ"_s);
    Commit(telephone, u"東京"_s);
    EXPECT_EQ(telephone.Text(), u"03-12 (ｱ)aZ"_s);
    EXPECT_FALSE(telephone.inputMethodQuery(Qt::ImEnabled).toBool());
    InputItem& name = Make(Design(20));
    Type(name, u"山田 taroｱ１"_s);
    EXPECT_EQ(name.Text(), u"山田 taroｱ１"_s);
}

TEST_F(InputItemTest, TextBeingComposedIsNotTextYet) {
    InputItem& item = Make(Design(20));
    QInputMethodEvent composing(u"やまだ"_s, {});
    QApplication::sendEvent(&item, &composing);
    EXPECT_EQ(item.Text(), QString());
    EXPECT_EQ(changes, 0);
    Commit(item, u"山田"_s);
    EXPECT_EQ(item.Text(), u"山田"_s);
    EXPECT_EQ(changes, 1);
}

TEST_F(InputItemTest, CommittedTextObeysTheLimitAndTheNextCompositionGoesOn) {
    InputItem& item = Make(Design(3));
    QInputMethodEvent event(u"つぎ"_s, {});
    event.setCommitString(u"あいうえ"_s);
    QApplication::sendEvent(&item, &event);
    EXPECT_EQ(item.Text(), u"あいう"_s);
}

TEST_F(InputItemTest, NormalisesKanaFromAllInputs) {
    InputItem& item = Make(Design(20, CharacterClass::All, ImeMode::HalfKatakana));
    Commit(item, u"がっこうパーティ漢"_s);
    EXPECT_EQ(item.Text(), u"ｶﾞｯｺｳﾊﾟｰﾃｨ漢"_s);
    Paste(item, u"あﾔやヤ"_s);
    EXPECT_EQ(item.Text(), u"ｶﾞｯｺｳﾊﾟｰﾃｨ漢ｱﾔﾔﾔ"_s);
    item.setText(u"ばば"_s);  // as a screen reader does
    EXPECT_EQ(item.Text(), u"ﾊﾞﾊﾞ"_s);
    item.SetText(u"ヤマダ"_s);
    EXPECT_EQ(item.Text(), u"ヤマダ"_s) << "what the program writes stays as it is";
}

TEST_F(InputItemTest, PastedKanaCountAsHalfWidthCharacters) {
    InputItem& item = Make(Design(5, CharacterClass::Kana, ImeMode::HalfKatakana));
    Paste(item, u"ヤマダ"_s);
    EXPECT_EQ(item.Text(), u"ﾔﾏﾀﾞ"_s);
    Paste(item, u"バス"_s);
    EXPECT_EQ(item.Text(), u"ﾔﾏﾀﾞﾊ"_s);
}

TEST_F(InputItemTest, ImeModesAreHints) {
    const auto hintsOf = [this](ImeMode mode) { return Make(Design(3, CharacterClass::All, mode)).inputMethodHints(); };
    EXPECT_EQ(hintsOf(ImeMode::On), Qt::ImhNone);
    EXPECT_EQ(hintsOf(ImeMode::Hiragana), Qt::ImhNone);
    EXPECT_TRUE(hintsOf(ImeMode::Off) & Qt::ImhPreferLatin);
    EXPECT_TRUE(Make(Design(3, CharacterClass::Num, ImeMode::Off)).inputMethodHints() & Qt::ImhDigitsOnly);
}

TEST_F(InputItemTest, ChangeComesOnlyWhereTextReallyChanges) {
    InputItem& item = Make(Design(5));
    item.SetText(u"x"_s);
    item.SetText(u"x"_s);
    EXPECT_EQ(changes, 1);
    item.selectAll();
    Type(item, u"x"_s);
    EXPECT_EQ(changes, 1);
    Press(item, Qt::Key_Backspace);
    EXPECT_EQ(changes, 2);
}

TEST_F(InputItemTest, RefusedKeysLeaveTheWayBack) {
    InputItem& item = Make(Design(2));
    Type(item, u"abcd"_s);
    Press(item, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(item.Text(), QString());
}

TEST_F(InputItemTest, EverythingIsSelectedWhenTheFocusComesByKeyOrClick) {
    InputItem& item = Make(Design(5));
    InputItem other(form, form, u"xField"_s, u"他"_s, -1, Design(5));
    other.setGeometry(10, 50, 100, 24);
    other.show();
    other.SetText(u"12345"_s);
    PressInWindow(form, Qt::Key_Tab);
    EXPECT_EQ(other.selectedText(), u"12345"_s);
    item.SetFocus();
    Click(other);
    EXPECT_EQ(other.selectedText(), u"12345"_s);
    Click(other);  // the second click places the cursor
    EXPECT_EQ(other.selectedText(), QString());
}

TEST_F(InputItemTest, ClickAndDoubleClick) {
    InputItem& item = Make(Design(5));
    QStringList events;
    item.Click = [&] { events << u"click"_s; };
    item.DblClick = [&] { events << u"double"_s; };
    Click(item);
    EXPECT_EQ(events, QStringList(u"click"_s));
    QTest::mouseDClick(&item, Qt::LeftButton);
    EXPECT_EQ(events.count(u"double"_s), 1);
}

TEST_F(InputItemTest, PinIsMasked) {
    InputItem& item = Make(Design(4), u"xPass"_s);
    Type(item, u"1234"_s);
    EXPECT_EQ(item.Text(), u"1234"_s);
    EXPECT_FALSE(item.displayText().contains(u"1234"_s));
    item.selectAll();
    QApplication::clipboard()->setText(u"x"_s);
    Press(item, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"x"_s);
}

TEST_F(InputItemTest, ColoursAreTheItemsOwn) {
    InputItem& item = Make(Design(4));
    item.SetBackColor(Qt::yellow);
    item.SetForeColor(Qt::red);
    EXPECT_EQ(item.BackColor(), QColor(Qt::yellow));
    EXPECT_EQ(item.ForeColor(), QColor(Qt::red));
}

TEST_F(InputItemTest, ClickSelectsBlanksThatAreTheWholeText) {
    InputItem& item = Make(Design(20));
    item.SetText(u"  \u3000"_s);
    Click(item);
    Click(item);
    EXPECT_EQ(item.selectedText(), u"  \u3000"_s);
    item.SetText(u"a  "_s);
    item.deselect();
    Click(item);
    EXPECT_FALSE(item.hasSelectedText()) << "it accepts more";
}
