#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLabel>
#include <QMimeData>
#include <QtTest/QTest>

#include "screen/ScreenTest.h"

using namespace Qt::StringLiterals;

namespace {

const QString kDropped = u"入力できない文字を除きました。"_s;

constexpr CharacterClasses kHalfWidth = CharacterClass::Kana | CharacterClass::Lower | CharacterClass::Num |
                                        CharacterClass::NumExt | CharacterClass::Space | CharacterClass::Symbol |
                                        CharacterClass::Upper;

/// An input and what each kind of item keeps of it; 30 characters at most.
struct BadInput {
    QString input;
    QString any;   ///< all characters
    QString wide;  ///< full-width characters only
    QString half;  ///< half-width characters only
    QString kana;  ///< half-width kana only
    QString digits;
};

QString Family() { return u"\U0001F468\u200D\U0001F469\u200D\U0001F466"_s; }

QList<BadInput> BadInputs() {
    const QString thirty(30, u'1');
    return {
        {QString(10000, u'山'), QString(30, u'山'), QString(30, u'山'), {}, {}, {}},
        {QString(10000, u'１'), QString(30, u'１'), QString(30, u'１'), thirty, {}, thirty},
        {QString(10000, u'ア'), QString(30, u'ア'), QString(30, u'ア'), {}, QString(30, u'ｱ'), {}},
        {u"山1\t田2\n\u2028ｱ3\r\n"_s, u"山1田2ｱ3"_s, u"山田"_s, u"12ｱ3"_s, u"ｱ"_s, u"123"_s},
        {u"\r\n\t\n"_s, {}, {}, {}, {}, {}},
        {u"1🙂"_s + Family() + u"2"_s, u"1🙂"_s + Family() + u"2"_s, u"🙂"_s + Family(), u"12"_s, {}, u"12"_s},
        {QString(29, u'1') + u"🙂"_s, QString(29, u'1'), u"🙂"_s, QString(29, u'1'), {}, QString(29, u'1')},
        {u"か\u3099e\u0301は\u309A"_s, u"がe\u0301ぱ"_s, u"が\u0301ぱ"_s, u"e"_s, u"ｶﾞﾊﾟ"_s, {}},
        {u"\u3099\u0301\u20DD"_s, u"\u3099\u0301\u20DD"_s, u"\u3099\u0301\u20DD"_s, {}, u"ﾞ"_s, {}},
        {u"1"_s + QChar(0xD83D) + u"2"_s + QChar(0xDE42), u"12"_s, {}, u"12"_s, {}, u"12"_s},
    };
}

struct Kind {
    ItemDesign design;
    QString BadInput::*kept;
    QString type = u"xField"_s;
};

QList<Kind> Kinds() {
    const auto design = [](CharacterClasses classes, ImeMode mode) {
        return ItemDesign{.maxLength = 30, .imeMode = mode, .classes = classes, .text = {}};
    };
    return {
        {design(CharacterClass::All, ImeMode::On), &BadInput::any},
        {design(CharacterClass::All | CharacterClass::DblByte, ImeMode::Hiragana), &BadInput::any},
        {design(CharacterClass::DblByte, ImeMode::On), &BadInput::wide},
        {design(kHalfWidth, ImeMode::Disabled), &BadInput::half},
        {design(CharacterClass::Kana, ImeMode::HalfKatakana), &BadInput::kana},
        {design(CharacterClass::Num, ImeMode::Off), &BadInput::digits},
        {design(CharacterClass::Num | CharacterClass::Symbol, ImeMode::Off), &BadInput::digits},
        {design(CharacterClass::All, ImeMode::Disabled), &BadInput::any, u"xPass"_s},
    };
}

}  // namespace

class BadInputTest : public ScreenTest {
  protected:
    Form form{u"入力"_s};

    void SetUp() override { form.resize(400, 300); }

    template <typename Item>
    Item& Shown(Item* item) {
        item->setGeometry(10, 10, 200, 24);
        ShowActive(form);
        item->show();
        item->SetFocus();
        return *item;
    }
    InputItem& Make(const Kind& kind) {
        return Shown(new InputItem(form, form, kind.type, u"項目"_s, ++last_, kind.design));
    }
    static void Compose(QWidget& item, const QString& preedit) {
        QInputMethodEvent event(preedit, {});
        QApplication::sendEvent(&item, &event);
    }
    static void Paste(QWidget& item, const QString& text) {
        QApplication::clipboard()->setText(text);
        Press(item, Qt::Key_V, Qt::ControlModifier);
    }
    static void Drop(QWidget& item, const QString& text) {
        QMimeData data;
        data.setText(text);
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        static_cast<QLineEdit&>(item).event(&drop);
    }
    /// The notice next to the item; empty if none is shown.
    QString Notice() const {
        const auto* label = form.findChild<QLabel*>();
        return label != nullptr && label->isVisible() ? label->text() : QString();
    }
    /// Every way in which a text can arrive.
    static QList<std::function<void(QWidget&, const QString&)>> Ways() {
        return {[](QWidget& item, const QString& text) { Paste(item, text); },
                [](QWidget& item, const QString& text) { Drop(item, text); },
                [](QWidget& item, const QString& text) { Commit(item, text); },
                [](QWidget& item, const QString& text) {
                    Compose(item, u"にほん"_s);
                    Paste(item, text);
                    Compose(item, QString());
                },
                [](QWidget& item, const QString& text) {
                    Compose(item, u"にほん"_s);
                    Commit(item, text);
                },
                [](QWidget& item, const QString& text) {
                    QAccessible::queryAccessibleInterface(&item)->setText(QAccessible::Value, text);
                }};
    }

  private:
    int last_ = -1;
};

TEST_F(BadInputTest, EveryKindOfItemKeepsWhatItAcceptsWhateverWayTheTextComes) {
    for (const Kind& kind : Kinds()) {
        for (const BadInput& bad : BadInputs()) {
            int way = 0;
            for (const auto& enter : Ways()) {
                InputItem& item = Make(kind);
                enter(item, bad.input);
                EXPECT_EQ(item.Text(), bad.*kind.kept)
                    << bad.input.left(20).toStdString() << " way " << way << " class " << kind.design.classes.toInt();
                ++way;
                item.SetVisible(false);
            }
        }
    }
}

TEST_F(BadInputTest, NumberTakesNoneOfIt) {
    auto& number = Shown(new NumItem(form, form, u"区分"_s));
    number.SetMaxValue(std::numeric_limits<int>::max());
    QList<BadInput> inputs = BadInputs();
    inputs.append({u"2147483648"_s, {}, {}, {}, {}, {}});
    inputs.append({u"99999999999999999999"_s, {}, {}, {}, {}, {}});
    inputs.append({u"-1"_s, {}, {}, {}, {}, {}});
    inputs.append({u"1.5"_s, {}, {}, {}, {}, {}});
    int changes = 0;
    for (const BadInput& bad : inputs) {
        int way = 0;
        for (const auto& enter : Ways()) {
            number.SetValue(7);
            number.selectAll();
            number.Change = [&] { ++changes; };
            enter(number, bad.input);
            EXPECT_EQ(number.Value(), 7) << bad.input.left(20).toStdString() << " way " << way;
            EXPECT_EQ(number.Text(), u"7"_s) << bad.input.left(20).toStdString() << " way " << way++;
            number.Change = nullptr;
        }
    }
    EXPECT_EQ(changes, 0);
}

TEST_F(BadInputTest, NumberTakesFullWidthDigitsAndACopiedCell) {
    auto& number = Shown(new NumItem(form, form, u"区分"_s));
    number.SetMaxValue(12);
    for (const QString& text : {u"１２"_s, u" 12"_s, u"12\t"_s, u"12\r\n"_s, u"　１２　"_s}) {
        number.SetValue(0);
        Paste(number, text);
        EXPECT_EQ(number.Value(), 12) << text.toStdString();
        EXPECT_EQ(number.Text(), u"12"_s) << text.toStdString();
        EXPECT_EQ(Notice(), QString());
    }
}

TEST_F(BadInputTest, NumberShowsWhatItHoldsAfterAPaintOfAnEqualValue) {
    auto& number = Shown(new NumItem(form, form, u"区分"_s));
    number.SetValue(7);
    {
        const QSignalBlocker quiet(&number);
        number.setText(u"3"_s);
    }
    number.SetValue(7);
    EXPECT_EQ(number.Text(), u"7"_s);
}

TEST_F(BadInputTest, ItemThatOnlyShowsTakesNothing) {
    InputItem& name = Make({.design = {.maxLength = 20, .text = u"山田"_s}, .kept = &BadInput::any});
    name.setReadOnly(true);
    for (const auto& enter : Ways()) {
        name.selectAll();
        enter(name, u"川"_s);
        EXPECT_EQ(name.Text(), u"山田"_s);
    }
    Type(name, u"川"_s);
    EXPECT_EQ(name.Text(), u"山田"_s);
    EXPECT_EQ(Notice(), QString());
}

TEST_F(BadInputTest, ItemsOfADisabledFormKeepWhatTheyHold) {
    InputItem& name = Make({.design = {.maxLength = 20, .text = u"山田"_s}, .kept = &BadInput::any});
    auto& number = Shown(new NumItem(form, form, u"区分"_s));
    int changes = 0;
    name.Change = number.Change = [&] { ++changes; };
    form.SetEnabled(false);
    QAccessible::queryAccessibleInterface(&name)->setText(QAccessible::Value, u"川"_s);
    QAccessible::queryAccessibleInterface(&number)->setText(QAccessible::Value, u"1"_s);
    EXPECT_EQ(name.Text(), u"山田"_s) << "no program would hear of the change";
    EXPECT_EQ(number.Value(), 0);
    EXPECT_EQ(number.Text(), u"0"_s);
    EXPECT_EQ(changes, 0);
}

TEST_F(BadInputTest, WhatIsDroppedIsShownNextToTheItemUntilTheNextInput) {
    InputItem& code =
        Make({.design = {.maxLength = 3, .classes = CharacterClass::Num, .text = {}}, .kept = &BadInput::digits});
    Type(code, u"1"_s);
    EXPECT_EQ(Notice(), QString());
    Type(code, u"a"_s);
    EXPECT_EQ(Notice(), kDropped);
    const auto* label = form.findChild<QLabel*>();
    EXPECT_TRUE(form.rect().contains(label->geometry()));
    EXPECT_FALSE(label->geometry().intersects(code.geometry()));
    Type(code, u"2"_s);
    EXPECT_EQ(Notice(), QString());
    Paste(code, u"1-2"_s);
    EXPECT_EQ(Notice(), kDropped);
    code.clearFocus();
    EXPECT_EQ(Notice(), QString());
}

TEST_F(BadInputTest, PastedTextThatIsTooLongIsShownButNotAKeyAtTheLimit) {
    InputItem& code =
        Make({.design = {.maxLength = 3, .classes = CharacterClass::Num, .text = {}}, .kept = &BadInput::digits});
    Paste(code, u"1234"_s);
    EXPECT_EQ(Notice(), kDropped);
    Type(code, u"5"_s);
    EXPECT_EQ(Notice(), QString());
    EXPECT_EQ(code.Text(), u"123"_s);
}

TEST_F(BadInputTest, WhatIsDroppedIsShownInTheNoticeOfTheForm) {
    Label notice(form, form, u"お知らせ"_s, -1, QString());
    auto& number = Shown(new NumItem(form, form, u"区分"_s));
    number.SetMaxValue(2);
    Paste(number, u"x"_s);
    EXPECT_EQ(notice.Caption(), kDropped);
    number.clearFocus();
    EXPECT_EQ(notice.Caption(), kDropped) << "until the next input";
    number.SetFocus();
    Type(number, u"1"_s);
    EXPECT_EQ(notice.Caption(), QString());
    Type(number, u"9"_s);
    EXPECT_EQ(notice.Caption(), kDropped) << "a number beyond the bounds";
    notice.SetCaption(u"2文字オーバーです。"_s);
    Type(number, u"1"_s);
    EXPECT_EQ(notice.Caption(), u"2文字オーバーです。"_s) << "another notice";
    EXPECT_EQ(form.findChild<QLabel*>(), nullptr);
}
