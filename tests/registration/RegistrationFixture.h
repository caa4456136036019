#pragma once

#include <gtest/gtest.h>

#include <QTest>

#include "globals/ProgramGlobals.h"
#include "registration/Mod要員台帳更新.h"
#include "registration/StaffItems.h"
#include "screen/Form.h"
#include "support/SampleInstallation.h"
#include "support/TestServices.h"

/// The registration program over a sample installation, controlled by real key and mouse events. The test calls Start.
/// The person is 00007; 00001 is the launching staff member.
class RegistrationTest : public ::testing::Test {
  protected:
    RegistrationTest() {
        installation.General().Execute(QStringLiteral(
            "DELETE FROM T閲覧; UPDATE M担当者 SET 氏名 = '山田　太郎', カナ = 'ﾔﾏﾀﾞ ﾀﾛｳ', 性別区分 = '0',"
            " 郵便番号 = '100-0005', 住所A = '東京都千代田区', 住所B = '丸の内９－８－７', 住所C = '',"
            " 電話 = '03-5555-0100', 携帯電話 = '', EMAIL = 'taro@example.co.jp', 事業所コード = '001',"
            " 部門コード = '010', セクションコード = '011', 役職コード = '30', 在籍区分 = '0',"
            " 社員区分 = '1', 生年月日 = '19650403', 入社日付 = '19890401', 退社日付 = '',"
            " 担当者メモ = '普通自動車免許', 登録日付 = '20050401 090000', 更新日付 = NULL"
            " WHERE コード = '00007'"));
    }
    ~RegistrationTest() override { delete Globals().MainForm; }

    void Start(const QString& command = QStringLiteral("00000007")) {
        services.system.applicationFolder = installation.ProgramFolder();
        services.system.commandLine = command;
        StartRegistration();
        if (!Globals().MainForm->isVisible()) return;
        ASSERT_TRUE(QTest::qWaitForWindowExposed(Globals().MainForm));
    }
    static Form& Window() { return *Globals().MainForm; }
    static Control& Item(const QString& name) { return Window().Item(name); }
    static QString Text(const QString& name) { return Item(name).Text(); }
    static QString Caption(const QString& name) { return Item(name).Caption(); }
    static QString Focused() {
        const Control* active = Window().ActiveControl();
        return active == nullptr ? QString() : active->Name();
    }

    static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        Control* active = Window().ActiveControl();
        QTest::keyClick(active == nullptr ? static_cast<QWidget*>(&Window()) : &active->FocusWidget(), key, modifiers);
    }
    static void Click(const QString& name) { QTest::mouseClick(&Item(name).FocusWidget(), Qt::LeftButton); }
    /// Clicks the item, replaces its text by keys and leaves it with Enter.
    static void Enter(const QString& name, const QString& text) {
        Click(name);
        Press(Qt::Key_A, Qt::ControlModifier);
        Press(Qt::Key_Delete);
        for (const QChar sign : text)
            QTest::sendKeyEvent(QTest::Click, &Item(name).FocusWidget(), Qt::Key_unknown, sign, Qt::NoModifier);
        Press(Qt::Key_Return);
    }

    QString Stored(const QString& column) const {
        return installation.General().Value(
            QStringLiteral("SELECT %1 FROM M担当者 WHERE コード = '00007'").arg(column));
    }
    QStringList StoredItems() const {
        QStringList texts;
        for (const StaffItem& item : kStaffItems) texts << Stored(item.column.toString());
        return texts;
    }
    /// 閲覧区分 of the viewing log, oldest row first.
    QStringList ViewKinds() const {
        QStringList kinds;
        for (const QStringList& row :
             installation.General().Rows(QStringLiteral("SELECT 閲覧区分 FROM T閲覧 ORDER BY rowid")))
            kinds << row.first();
        return kinds;
    }
    bool HasEnded() const { return !services.processes.ends.isEmpty(); }

    /// Adds a start message for this program.
    void LeaveStartMessage(const QString& key, const QString& stamp = QStringLiteral("20261121 093000")) const {
        installation.Configuration().Execute(
            QStringLiteral(
                "INSERT INTO プログラム連携情報 VALUES ('%2', '要員名簿照会', '要員台帳更新', '%2', '00', %1, '',"
                " '000', '00001', 'tester')")
                .arg(SqlLiteral(key), stamp));
    }
    QList<QStringList> Messages() const {
        return installation.Configuration().Rows(
            QStringLiteral("SELECT 発信日時, 発信プログラムID, 受信プログラムID, 受信期限, 連携区分, 起動連携情報,"
                           " 終了連携情報 FROM プログラム連携情報"));
    }
    static QList<QStringList> EndMessage(const QString& key) {
        return {{QStringLiteral("20261121 093015"), QStringLiteral("要員名簿照会"), QStringLiteral("要員台帳更新"),
                 QStringLiteral("20261121 093015"), QStringLiteral("99"), key, QStringLiteral("")}};
    }

    TestServices services;
    SampleInstallation installation;
};
