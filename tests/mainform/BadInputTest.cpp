#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLabel>
#include <QtTest/QTest>
#include <algorithm>

#include "globals/ProgramGlobals.h"
#include "inquiry/SearchConditions.h"
#include "mainform/ValueWindowsFixture.h"
#include "selection/OpenListWindow.h"

using namespace Qt::StringLiterals;

namespace {

const QString kDropped = u"入力できない文字を除きました。"_s;

const QStringList& BadTexts() {
    static const QStringList texts = {
        QString(10000, u'山'),
        QString(10000, u'１'),
        QString(10000, u'ア'),
        u"1\t2\n3\r\n"_s,
        u"\U0001F468\u200D\U0001F469 1"_s,
        u"🙂"_s.repeated(50),
        u"か\u3099e\u0301\u20DD1"_s,
        u"\u3099"_s,
    };
    return texts;
}

/// No control character, no half of a surrogate pair.
bool IsSound(const QString& text) {
    const bool controls = std::any_of(text.begin(), text.end(),
                                      [](QChar character) { return character.category() == QChar::Other_Control; });
    return !controls && text.isValidUtf16();
}

}  // namespace

class BadInputOnForms : public ValueWindowsTest {
  protected:
    static void Paste(QWidget& item, const QString& text) {
        QApplication::clipboard()->setText(text);
        // Not Ctrl+V: Ctrl alone opens a lookup in a code item.
        QTest::keyClick(&item, Qt::Key_Insert, Qt::ShiftModifier);
    }
    static void Commit(QWidget& item, const QString& text) {
        QInputMethodEvent composing(u"にほん"_s, {});
        QApplication::sendEvent(&item, &composing);
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(&item, &event);
    }
    /// Pastes and commits each bad text into an item.
    static void Abuse(Control& item) {
        for (const QString& text : BadTexts()) {
            for (const auto& enter : {Paste, Commit}) {
                item.SetFocus();
                auto& edit = static_cast<QLineEdit&>(item.FocusWidget());
                edit.selectAll();
                enter(edit, text);
                EXPECT_TRUE(IsSound(item.Text())) << item.Name().toStdString();
                if (item.TypeName() == u"xNum") {
                    EXPECT_EQ(item.Text(), QString::number(item.Value())) << item.Name().toStdString();
                } else if (item.MaxLength() > 0) {
                    EXPECT_LE(item.Text().size(), item.MaxLength()) << item.Name().toStdString();
                }
            }
        }
    }
    static QList<Control*> InputsOf(const Form& form) {
        QList<Control*> inputs;
        for (Control* control : form.Controls())
            if (qobject_cast<QLineEdit*>(&control->FocusWidget()) != nullptr) inputs << control;
        return inputs;
    }
};

TEST_F(BadInputOnForms, HeadItemsKeepTheirLimitsAndTheRecordWhatTheyShow) {
    Start();
    const QList<Control*> inputs = InputsOf(MainForm());
    ASSERT_EQ(inputs.size(), 16);
    for (Control* item : inputs) Abuse(*item);
    Item(u"btn_集計検索"_s).SetFocus();
    for (const TextCondition& text : TextConditions())
        EXPECT_EQ(Globals().Conditions.*text.field, Item(text.item).Text()) << text.item.toStdString();
    for (const KindCondition& kind : KindConditions()) {
        EXPECT_EQ(Globals().Conditions.*kind.field, Item(kind.item).Value()) << kind.item.toStdString();
        EXPECT_EQ(Item(kind.listItem).ListIndex(), Item(kind.item).Value()) << kind.item.toStdString();
    }
    for (const RangeCondition& range : RangeConditions())
        EXPECT_EQ(Globals().Conditions.*range.from, Item(range.fromItem).Text()) << range.fromItem.toStdString();
    EXPECT_EQ(services.dialogs.Texts(), QStringList());
}

TEST_F(BadInputOnForms, WhatTheHeadDropsIsShownUntilTheNextInput) {
    Start();
    for (const QString& name : {u"検索電話"_s, u"開始部門コード"_s, u"在籍区分"_s}) {
        Item(name).SetFocus();
        auto& edit = static_cast<QLineEdit&>(Item(name).FocusWidget());
        edit.selectAll();
        Paste(edit, u"〒１"_s);
        EXPECT_EQ(Item(u"お知らせ"_s).Caption(), kDropped) << name.toStdString();
        edit.selectAll();
        Paste(edit, u"１"_s);
        EXPECT_EQ(Item(u"お知らせ"_s).Caption(), QString()) << name.toStdString();
        EXPECT_EQ(Item(name).Text(), u"1"_s) << name.toStdString();
    }
    Item(u"検索名称"_s).SetFocus();
    Paste(Item(u"検索名称"_s).FocusWidget(), QString(10000, u'あ'));
    EXPECT_EQ(Item(u"お知らせ"_s).Caption(), u"10文字オーバーです。"_s) << "the notice counts what is too long";
}

TEST_F(BadInputOnForms, ValueWindowsKeepTheirLimitsAndShowWhatTheyDrop) {
    Start();
    for (const TextCondition& window : TextConditions()) {
        Open(window, [&](ModalRobot& user) {
            for (Control* item : InputsOf(user.Dialog())) {
                Abuse(*item);
                item->SetText(QString());
            }
            Control& first = user.Item(window.valueItem, 0);
            first.SetFocus();
            Paste(first.FocusWidget(), u"ｱ\n1"_s);
            const auto* notice = user.Dialog().findChild<QLabel*>();
            ASSERT_NE(notice, nullptr);
            EXPECT_TRUE(notice->isVisible());
            EXPECT_EQ(notice->text(), kDropped);
            GoBack(user);
        });
    }
}

TEST_F(BadInputOnForms, ListWindowsKeepTheirLimits) {
    Start();
    for (const RangeCondition& range : RangeConditions()) {
        for (const QString& name : {range.lookup, range.selection.window}) {
            ModalRobot user(name, [](ModalRobot& opened) {
                for (Control* item : InputsOf(opened.Dialog()))
                    if (!static_cast<QLineEdit&>(item->FocusWidget()).isReadOnly()) Abuse(*item);
                opened.Press(Qt::Key_Escape);
            });
            Globals().ListResultItem = &Item(range.fromItem);
            Globals().ListNextItem = &Item(range.toItem);
            ShowListWindow(name);
            EXPECT_EQ(user.Opened(), 1) << name.toStdString();
        }
    }
}
