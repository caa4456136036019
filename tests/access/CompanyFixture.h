#pragma once

#include <gtest/gtest.h>

#include <QHash>
#include <QStringList>

#include "access/CompanyInformation.h"
#include "data/Catalogue.h"
#include "data/DataFixture.h"

/// Fake cipher that marks each text it decrypts.
class MarkingPins : public platform::PinCipherObject {
  public:
    QString ClearText(const QString& stored) override { return QStringLiteral("clear:") + stored; }
};

/// Both connections are open. The masters contain the company, the offices "000" and "001", all columns but the key
/// Null, and no partner.
class WithCompany : public WithConnections {
  protected:
    WithCompany() {
        using namespace Qt::StringLiterals;
        General(
            u"DELETE FROM Mユーザ; INSERT INTO Mユーザ (ID) VALUES ('0001');"
            u"DELETE FROM M事業所; INSERT INTO M事業所 (コード) VALUES ('000'), ('001');"
            u"DELETE FROM M他業務連携"_s);
    }

    void General(const QString& sql) { installation.General().Execute(sql); }
    void Company(const QString& assignments) { General(QStringLiteral("UPDATE Mユーザ SET ") + assignments); }
    void Office(const QString& code, const QString& assignments) {
        General(QStringLiteral("UPDATE M事業所 SET %1 WHERE コード = '%2'").arg(assignments, code));
    }
    /// Sets the operating office in Globals() and in the configuration.
    void Operate(const QString& code) {
        Globals().Environment.OperatingOfficeCode = code;
        installation.SetEnvironment(QStringLiteral("運用事業所コード"), code);
    }
    QString StoredOffice() {
        return installation.Configuration().Value(QStringLiteral("SELECT 運用事業所コード FROM 動作環境定義"));
    }

    /// Writes a different number into each column of the row except its key; returns the numbers by column.
    QHash<QString, QString> NumberColumns(const QString& table, const QString& key, const QString& code) {
        QHash<QString, QString> numbers{{key, code}};
        QStringList assignments;
        for (const ColumnDefinition& column : SuiteTable(DatabaseKind::General, table).columns) {
            if (column.name == key) continue;
            numbers.insert(column.name, QString::number(1000 + numbers.size()));
            assignments.append(column.name + QStringLiteral(" = ") + numbers[column.name]);
        }
        General(QStringLiteral("UPDATE %1 SET %2 WHERE %3 = '%4'").arg(table, assignments.join(u','), key, code));
        return numbers;
    }

    /// The history row of a failed statement: the engine's message, then the statement, quotes doubled.
    QString FailedRow(const QString& statement, database::Connection& connection = Globals().MainConnection) {
        QString text = FailureOf([&] { connection.Execute(statement); }).description + statement;
        return QStringLiteral("エラー ") + text.replace(QStringLiteral("'"), QStringLiteral("''"));
    }
};

inline QString AsText(const QString& value) { return value; }
inline QString AsText(double value) { return QString::number(value); }

/// The field has the number written into the column of its name.
#define EXPECT_HOLDS(record, numbers, field) \
    EXPECT_EQ(AsText((record).field), (numbers)[QStringLiteral(#field)]) << #field

/// Checks the columns shared by company and office; the PIN was read through MarkingPins.
inline void ExpectCommonColumns(const EstablishmentRecord& record, QHash<QString, QString> numbers) {
    numbers[QStringLiteral("特権暗証番号")].prepend(QStringLiteral("clear:"));
    EXPECT_HOLDS(record, numbers, 名称);
    EXPECT_HOLDS(record, numbers, 郵便番号);
    EXPECT_HOLDS(record, numbers, 住所A);
    EXPECT_HOLDS(record, numbers, 住所B);
    EXPECT_HOLDS(record, numbers, 住所C);
    EXPECT_HOLDS(record, numbers, 代表者名);
    EXPECT_HOLDS(record, numbers, 電話);
    EXPECT_HOLDS(record, numbers, FAX);
    EXPECT_HOLDS(record, numbers, HOMEPAGE);
    EXPECT_HOLDS(record, numbers, EMAIL);
    EXPECT_HOLDS(record, numbers, 銀行口座A);
    EXPECT_HOLDS(record, numbers, 銀行口座B);
    EXPECT_HOLDS(record, numbers, 銀行口座C);
    EXPECT_HOLDS(record, numbers, 銀行口座D);
    EXPECT_HOLDS(record, numbers, 総合振込ファイル);
    EXPECT_HOLDS(record, numbers, 基本読込フォルダ);
    EXPECT_HOLDS(record, numbers, 帳票イメージフォルダ);
    EXPECT_HOLDS(record, numbers, その他読込ファイル);
    EXPECT_HOLDS(record, numbers, 本支店連携フォルダ);
    EXPECT_HOLDS(record, numbers, テキスト出力フォルダ);
    EXPECT_HOLDS(record, numbers, BACKUPフォルダ);
    EXPECT_HOLDS(record, numbers, 暗証番号有無);
    EXPECT_HOLDS(record, numbers, 特権暗証番号);
    EXPECT_HOLDS(record, numbers, 更新実行区分);
}
