#pragma once

#include "access/ProgramRights.h"
#include "data/DataFixture.h"

/// The staff member 00001 of office "000" has every right, and the program runs for that office. PINs are stored in
/// clear.
class WithRights : public WithConnections {
  protected:
    WithRights() {
        using namespace Qt::StringLiterals;
        Globals().ScopeOfficeCode = u"000"_s;
        Globals().OsUserName = u"tester"_s;
        QString columns;
        for (int i = 0; i < 10; ++i) columns += u", 処理分類%1操作許可 = '0'"_s.arg(i);
        SetStaff(
            u"事業所コード = '000', 在籍区分 = '0', 暗証番号 = 'PIN01', ログインID = 'Taro', アクセス権限 = '9',"
            u" 操作許可 = '0', 入力許可 = '0', 修正許可 = '0', 削除許可 = '0', 印刷許可 = '0',"
            u" プレビュ許可 = '0', テキスト出力許可 = '0', イメージ出力許可 = '0'"_s +
            columns);
        installation.General().Execute(u"DELETE FROM 担当者別操作許可プログラム"_s);
    }

    /// Updates 00001; `assignments` as in "a = 'b', c = 'd'".
    void SetStaff(const QString& assignments) const {
        using namespace Qt::StringLiterals;
        installation.General().Execute(u"UPDATE M担当者 SET "_s + assignments + u" WHERE コード = '00001'"_s);
    }
    void SetClass(const QString& workClass) const {
        using namespace Qt::StringLiterals;
        installation.Configuration().Execute(
            u"UPDATE 販路推進データ管理 SET 処理分類 = %1 WHERE プログラムID = '要員名簿照会'"_s.arg(
                SqlLiteral(workClass)));
    }
    /// Adds a personal rule of 00001 for this program; rights by operation number.
    void AddPersonalRule(const QString& menu, const QStringList& rights) const {
        using namespace Qt::StringLiterals;
        QStringList values;
        for (const QString& right : rights) values << SqlLiteral(right);
        installation.General().Execute(
            u"INSERT INTO 担当者別操作許可プログラム (担当者コード, 業務メニュ, プログラムID, 操作許可, 入力許可, "
            u"修正許可,"
            u" 削除許可, 印刷許可, プレビュ許可, テキスト出力許可, イメージ出力許可) VALUES ('00001', %1, '要員名簿照会', "_s
                .arg(SqlLiteral(menu)) +
            values.join(u", "_s) + u')');
    }
    QString StoredSignIn() const {
        using namespace Qt::StringLiterals;
        return installation.Configuration().Value(u"SELECT 起動担当者コード FROM 動作環境定義"_s);
    }
    void SetSignIn(const QString& code) const { installation.SetEnvironment(QStringLiteral("起動担当者コード"), code); }

    static bool Evaluate(int operation) {
        return EvaluateProgramRights(Globals().MenuName, Globals().ProgramId, static_cast<Operation>(operation));
    }
    static bool Check(int operation) {
        return CheckProgramPermission(Globals().MenuName, Globals().ProgramId, static_cast<Operation>(operation));
    }
    static bool Load(int operation) {
        return LoadIdentityAndRights(Globals().MenuName, Globals().ProgramId, static_cast<Operation>(operation));
    }
};
