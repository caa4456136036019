#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QtTest/QTest>

#include "screen/InputMethod.h"
#include "screen/PlainControls.h"
#include "screen/ScreenTest.h"

using namespace Qt::StringLiterals;

namespace {

constexpr CharacterClasses kHalfWidth = CharacterClass::Kana | CharacterClass::Lower | CharacterClass::Num |
                                        CharacterClass::NumExt | CharacterClass::Space | CharacterClass::Symbol |
                                        CharacterClass::Upper;

/// What the platform asks a widget before it passes the widget's keys to the input method.
bool TakesInputMethod(QWidget& widget) {
    QInputMethodQueryEvent query(Qt::ImEnabled);
    QApplication::sendEvent(&widget, &query);
    return query.value(Qt::ImEnabled).toBool();
}

/// Counts the questions whether a widget takes part in the input method.
class QuestionCounter : public QObject {
  public:
    explicit QuestionCounter(QObject& watched) { watched.installEventFilter(this); }
    int count = 0;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::InputMethodQuery &&
            (static_cast<QInputMethodQueryEvent*>(event)->queries() & Qt::ImEnabled))
            ++count;
        return QObject::eventFilter(watched, event);
    }
};

}  // namespace

class InputMethodTest : public ScreenTest {
  protected:
    Form form{u"入力方式"_s};
    QStringList changes;

    InputItem& Make(ImeMode mode, CharacterClasses classes = CharacterClass::All, const QString& type = u"xField"_s,
                    int maxLength = 20) {
        auto* item = new InputItem(form, form, type, u"項目"_s, ++last_,
                                   {.maxLength = maxLength, .imeMode = mode, .classes = classes, .text = {}});
        item->setGeometry(10, 10 + 30 * last_, 200, 24);
        item->Change = [this, item] { changes << item->Text(); };
        ShowActive(form);
        item->show();
        item->SetFocus();
        return *item;
    }
    NumItem& MakeNumber(int maxValue) {
        auto* item = new NumItem(form, form, u"区分"_s);
        item->setGeometry(10, 10, 40, 24);
        item->SetMaxValue(maxValue);
        item->Change = [this, item] { changes << QString::number(item->Value()); };
        ShowActive(form);
        item->show();
        item->SetFocus();
        return *item;
    }
    /// An unfinished conversion, as the input method sends it.
    static void Compose(QWidget& item, const QString& preedit) {
        QInputMethodEvent event(preedit, {});
        QApplication::sendEvent(&item, &event);
    }
    /// The text as it is shown, with an unfinished conversion.
    static QImage Picture(QLineEdit& item) {
        item.deselect();
        item.setReadOnly(true);  // no cursor
        const QImage picture = item.grab().toImage();
        item.setReadOnly(false);
        return picture;
    }

  private:
    int last_ = -1;
};

TEST_F(InputMethodTest, OnlyItemsWithAModeForItTakePartInTheInputMethod) {
    for (const ImeMode mode : {ImeMode::None, ImeMode::On, ImeMode::Hiragana, ImeMode::HalfKatakana})
        EXPECT_TRUE(TakesInputMethod(Make(mode))) << static_cast<int>(mode);
    for (const ImeMode mode : {ImeMode::Off, ImeMode::Disabled})
        EXPECT_FALSE(TakesInputMethod(Make(mode))) << static_cast<int>(mode);
    EXPECT_FALSE(TakesInputMethod(Make(ImeMode::None, CharacterClass::All, u"xPass"_s)));
    EXPECT_FALSE(TakesInputMethod(MakeNumber(9)));
}

TEST_F(InputMethodTest, TextOfAnItemWithoutItIsNotPassedToTheInputMethod) {
    InputItem& pin = Make(ImeMode::None, CharacterClass::All, u"xPass"_s);
    pin.SetText(u"1234"_s);
    pin.selectAll();
    for (const auto query : {Qt::ImSurroundingText, Qt::ImCurrentSelection, Qt::ImTextBeforeCursor})
        EXPECT_EQ(pin.inputMethodQuery(query), QVariant());
    InputItem& name = Make(ImeMode::On);
    name.SetText(u"山田"_s);
    EXPECT_EQ(name.inputMethodQuery(Qt::ImSurroundingText).toString(), u"山田"_s);
}

TEST_F(InputMethodTest, ItemThatTakesNoInputTakesNoPartInTheInputMethod) {
    InputItem& shown = Make(ImeMode::On);
    shown.setReadOnly(true);
    EXPECT_FALSE(TakesInputMethod(shown));
    InputItem& disabled = Make(ImeMode::On);
    disabled.SetEnabled(false);
    EXPECT_FALSE(TakesInputMethod(disabled));
}

TEST_F(InputMethodTest, ControlsWithoutTextTakeNoPartInTheInputMethod) {
    ShowActive(form);
    auto* list = new ComboItem(form, form, u"一覧"_s);
    list->show();
    list->SetFocus();
    EXPECT_FALSE(TakesInputMethod(*list));
    auto* button = new Button(form, form, u"btn"_s, u"検索"_s);
    button->show();
    button->SetFocus();
    EXPECT_FALSE(TakesInputMethod(*button));
}

TEST_F(InputMethodTest, PlatformAsksEachItemThatGetsTheFocus) {
    InputItem& name = Make(ImeMode::On);
    InputItem& telephone = Make(ImeMode::Disabled, kHalfWidth);
    name.SetFocus();
    QuestionCounter ofTelephone(telephone), ofName(name);
    telephone.SetFocus();
    EXPECT_GT(ofTelephone.count, 0);
    name.SetFocus();
    EXPECT_GT(ofName.count, 0);
}

TEST_F(InputMethodTest, ConversionThatRunsIsNotShownInAnItemWithoutOne) {
    InputItem& zip = Make(ImeMode::Disabled, kHalfWidth);
    zip.SetText(u"110-0005"_s);
    zip.selectAll();
    const QImage before = Picture(zip);
    zip.selectAll();
    Compose(zip, u"あ"_s);
    EXPECT_EQ(zip.Text(), u"110-0005"_s) << "a conversion replaces the selection";
    EXPECT_EQ(Picture(zip), before);
}

TEST_F(InputMethodTest, FullWidthPostalCodeIsTakenAsHalfWidth) {
    InputItem& zip = Make(ImeMode::Disabled, kHalfWidth, u"xField"_s, 8);
    for (const QString& part : {u"１"_s, u"１０"_s, u"ー"_s, u"０００５"_s}) Commit(zip, part);
    EXPECT_EQ(zip.Text(), u"110-0005"_s);
    EXPECT_EQ(changes.value(changes.size() - 1), u"110-0005"_s);
}

TEST_F(InputMethodTest, FullWidthMailAddressIsTakenAsHalfWidth) {
    InputItem& address = Make(ImeMode::Disabled, kHalfWidth, u"xField"_s, 40);
    Commit(address, u"ｔａｒｏ＿ｙ＠ｅｘａｍｐｌｅ．ｊｐ"_s);
    EXPECT_EQ(address.Text(), u"taro_y@example.jp"_s);
}

TEST_F(InputMethodTest, EveryDashOfAnInputMethodIsAHyphenBetweenDigits) {
    InputItem& telephone = Make(ImeMode::Disabled, kHalfWidth);
    for (const QChar dash : u"－‐‑‒–—―−─ーｰ"_s) {
        telephone.SetText(QString());
        Commit(telephone, u"０３"_s + dash + u"１２３４"_s);
        EXPECT_EQ(telephone.Text(), u"03-1234"_s) << QString::number(dash.unicode(), 16).toStdString();
    }
}

TEST_F(InputMethodTest, BlanksAndBracketsAreTakenAsHalfWidth) {
    InputItem& telephone = Make(ImeMode::Disabled, kHalfWidth);
    Commit(telephone, u"（０３）　１２［内］"_s);
    EXPECT_EQ(telephone.Text(), u"(03) 12[]"_s);
}

TEST_F(InputMethodTest, ItemThatTakesFullWidthKeepsWhatIsCommitted) {
    InputItem& name = Make(ImeMode::On);
    Commit(name, u"山田　１（ー）－"_s);
    EXPECT_EQ(name.Text(), u"山田　１（ー）－"_s);
}

TEST_F(InputMethodTest, KanaItemTakesBlanksAndDigitsAsItsModeTypesThem) {
    InputItem& kana = Make(ImeMode::HalfKatakana);
    Commit(kana, u"やまだ　たろー１－２"_s);
    EXPECT_EQ(kana.Text(), u"ﾔﾏﾀﾞ ﾀﾛｰ1-2"_s);
}

TEST_F(InputMethodTest, NumberShowsWhatItHoldsThroughAConversion) {
    NumItem& kind = MakeNumber(2);
    const QImage zero = Picture(kind);
    kind.selectAll();
    Compose(kind, u"１"_s);
    EXPECT_EQ(kind.Text(), u"0"_s);
    EXPECT_EQ(Picture(kind), zero);
    Commit(kind, u"１"_s);
    EXPECT_EQ(kind.Value(), 1);
    EXPECT_EQ(kind.Text(), u"1"_s);
    EXPECT_EQ(changes, QStringList{u"1"_s});
    Compose(kind, QString());
    EXPECT_EQ(kind.Text(), u"1"_s);
}

TEST_F(InputMethodTest, NumberThatIsCommittedWhileItsChangePaintsShowsWhatItHolds) {
    NumItem& kind = MakeNumber(2);
    kind.Change = [this, &kind] {
        changes << QString::number(kind.Value());
        kind.SetValue(kind.Value());  // a paint writes the value that the item holds
    };
    Compose(kind, u"1"_s);
    Commit(kind, u"1"_s);
    EXPECT_EQ(kind.Value(), 1);
    EXPECT_EQ(kind.Text(), u"1"_s);
    EXPECT_EQ(changes, QStringList{u"1"_s}) << "no 0 in between";
}

TEST_F(InputMethodTest, PaintOfAnEqualTextEndsAConversionThatRuns) {
    InputItem& name = Make(ImeMode::On);
    name.SetText(u"山田"_s);
    const QImage before = Picture(name);
    Compose(name, u"たろう"_s);
    ASSERT_NE(Picture(name), before);
    changes.clear();
    name.SetText(u"山田"_s);
    EXPECT_EQ(Picture(name), before);
    EXPECT_EQ(changes, QStringList());
}

TEST(InputMethodChoice, NameInXModifiersIsUsedUnlessQtHasOne) {
    struct Case {
        QByteArray module, modifiers, chosen;
    };
    const QList<Case> cases = {{"", "@im=fcitx", "fcitx"},
                               {"", "@im=ibus", "ibus"},
                               {"", "@a=b@im=fcitx5", "fcitx5"},
                               {"ibus", "@im=fcitx", "ibus"},
                               {"", "@im=uim", ""},
                               {"", "", ""},
                               {"", "fcitx", ""},
                               {"", "@im=", ""}};
    const QByteArray names[] = {"QT_IM_MODULE", "XMODIFIERS"};
    const QByteArray before[] = {qgetenv(names[0]), qgetenv(names[1])};
    for (const Case& c : cases) {
        qputenv(names[0], c.module);
        qputenv(names[1], c.modifiers);
        ChooseInputMethod();
        EXPECT_EQ(qgetenv(names[0]), c.chosen) << c.modifiers.toStdString();
    }
    for (size_t i = 0; i < std::size(names); ++i)
        before[i].isEmpty() ? qunsetenv(names[i]) : qputenv(names[i], before[i]);
}
