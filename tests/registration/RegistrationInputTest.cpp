#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <utility>

#include "registration/RegistrationFixture.h"

using namespace Qt::StringLiterals;

namespace {

const QString kDropped = u"入力できない文字を除きました。"_s;

class RegistrationInput : public RegistrationTest {
  protected:
    static QLineEdit& EditOf(const QString& name) { return static_cast<QLineEdit&>(Item(name).FocusWidget()); }
    static void Select(const QString& name) {
        Item(name).SetFocus();
        EditOf(name).selectAll();
    }
    static void Paste(const QString& name, const QString& text) {
        Select(name);
        QApplication::clipboard()->setText(text);
        // Not Ctrl+V: Ctrl alone opens the list of a code.
        QTest::keyClick(&EditOf(name), Qt::Key_Insert, Qt::ShiftModifier);
    }
    /// Replaces the text by one that an input method composes and commits.
    static void Commit(const QString& name, const QString& text) {
        Select(name);
        QInputMethodEvent composing(u"にほん"_s, {});
        QApplication::sendEvent(&EditOf(name), &composing);
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(&EditOf(name), &event);
    }
};

/// A value as it comes with the input method on, and the value to be stored.
struct Value {
    QString item, input, stored;
};

const QList<Value>& Values() {
    static const QList<Value> values = {
        {u"氏名"_s, u"山田　花子"_s, u"山田　花子"_s},
        {u"カナ"_s, u"ヤマダ　ハナコ"_s, u"ﾔﾏﾀﾞ ﾊﾅｺ"_s},
        {u"性別区分"_s, u"１"_s, u"1"_s},
        {u"郵便番号"_s, u"１１０－０００５"_s, u"110-0005"_s},
        {u"住所A"_s, u"東京都台東区上野１－２"_s, u"東京都台東区上野１－２"_s},
        {u"電話"_s, u"０３（１２３４）５６７８"_s, u"03(1234)5678"_s},
        {u"携帯電話"_s, u"０９０ー１２３４−５６７８"_s, u"090-1234-5678"_s},
        {u"EMAIL"_s, u"ｔａｒｏ＠ｅｘａｍｐｌｅ．ｊｐ"_s, u"taro@example.jp"_s},
        {u"部門コード"_s, u"０２０"_s, u"020"_s},
        {u"在籍区分"_s, u"１"_s, u"1"_s},
        {u"生年月日"_s, u"１９９０／０１／３１"_s, u"19900131"_s},
        {u"担当者メモ"_s, u"メモ　（１）"_s, u"メモ　（１）"_s},
    };
    return values;
}

}  // namespace

TEST_F(RegistrationInput, FullWidthInputIsStoredWithoutALoss) {
    for (const auto& enter : {Commit, Paste}) {
        Start();
        for (const Value& value : Values()) {
            enter(value.item, value.input);
            EXPECT_EQ(Text(value.item), value.stored) << value.item.toStdString();
        }
        Click(u"btn_保存"_s);
        EXPECT_EQ(services.dialogs.Texts(), QStringList());
        for (const Value& value : Values()) EXPECT_EQ(Stored(value.item), value.stored) << value.item.toStdString();
        delete std::exchange(Globals().MainForm, nullptr);
    }
}

TEST_F(RegistrationInput, OnlyItemsOfFullWidthTextsAndKanaUseTheInputMethod) {
    Start();
    for (const StaffItem& item : kStaffItems) {
        const bool text = item.kind == StaffItemKind::Text || item.kind == StaffItemKind::Kana;
        EXPECT_EQ(EditOf(item.column.toString()).inputMethodQuery(Qt::ImEnabled).toBool(), text)
            << item.column.toString().toStdString();
    }
}

TEST_F(RegistrationInput, WhatIsDroppedIsShownInTheNotice) {
    Start();
    for (const QString& name : {u"郵便番号"_s, u"EMAIL"_s, u"部門コード"_s, u"生年月日"_s}) {
        Paste(name, u"〒1"_s);
        EXPECT_EQ(Caption(u"お知らせ"_s), kDropped) << name.toStdString();
        Paste(name, u"2"_s);
        EXPECT_EQ(Caption(u"お知らせ"_s), QString()) << name.toStdString();
    }
}

TEST_F(RegistrationInput, PastedTextBeyondTheLengthIsShownOrCounted) {
    Start();
    Paste(u"電話"_s, u"03-1234-5678(内線1)"_s);
    EXPECT_EQ(Caption(u"お知らせ"_s), kDropped);
    Paste(u"電話"_s, u"03-1234-5678 (123)"_s);
    EXPECT_EQ(Text(u"電話"_s), u"03-1234-5678 (12"_s);
    EXPECT_EQ(Caption(u"お知らせ"_s), kDropped);
    Paste(u"氏名"_s, QString(10000, u'字'));
    EXPECT_EQ(Text(u"氏名"_s), QString(20, u'字'));
    EXPECT_EQ(Caption(u"お知らせ"_s), u"10文字オーバーです。"_s);
}

TEST_F(RegistrationInput, EveryItemKeepsItsLimitsWhateverIsPastedOrCommitted) {
    Start();
    const QStringList bad = {QString(10000, u'山'),  QString(10000, u'１'),      u"1\t2\n3\r\n"_s,
                             u"🙂"_s.repeated(50), u"か\u3099e\u0301\u20DD"_s, u"\u3099"_s};
    for (const StaffItem& item : kStaffItems) {
        const QString name = item.column.toString();
        for (const QString& text : bad) {
            for (const auto& enter : {Commit, Paste}) {
                enter(name, text);
                EXPECT_LE(Text(name).size(), item.bytes) << name.toStdString();
                EXPECT_TRUE(Text(name).isValidUtf16()) << name.toStdString();
                EXPECT_FALSE(Text(name).contains(u'\n') || Text(name).contains(u'\t')) << name.toStdString();
            }
        }
    }
    EXPECT_EQ(services.dialogs.Texts(), QStringList());
    EXPECT_FALSE(HasEnded());
}
