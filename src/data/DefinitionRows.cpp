// Part of Environment.h: the procedures that read definition rows.

#include "data/Environment.h"

#include <array>

#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kOfficeWidth = 3;
constexpr int kDateWidth = 8;

struct DefinitionColumn {
    QStringView name;
    QString GeneralDatabaseDefinition::*field;
};

constexpr std::array kTrimmedColumns = {
    DefinitionColumn{u"ドライバ名", &GeneralDatabaseDefinition::ドライバ名},
    DefinitionColumn{u"データベース名", &GeneralDatabaseDefinition::データベース名},
    DefinitionColumn{u"サーバー名", &GeneralDatabaseDefinition::サーバー名},
    DefinitionColumn{u"接続文字列", &GeneralDatabaseDefinition::接続文字列},
    DefinitionColumn{u"ユーザーID", &GeneralDatabaseDefinition::ユーザーID},
    DefinitionColumn{u"パスワード", &GeneralDatabaseDefinition::パスワード},
    DefinitionColumn{u"プロバイダ名", &GeneralDatabaseDefinition::プロバイダ名},
    DefinitionColumn{u"データソース名", &GeneralDatabaseDefinition::データソース名},
};

constexpr std::array<QStringView, 7> kWeekdays = {u"月曜バックアップ", u"火曜バックアップ", u"水曜バックアップ",
                                                  u"木曜バックアップ", u"金曜バックアップ", u"土曜バックアップ",
                                                  u"日曜バックアップ"};

/// Null in `db` or `dbmw` is an error, as it always was. `db` is not trimmed, since it is compared exactly.
void TakeDefinition(const database::Recordset& record) {
    GeneralDatabaseDefinition& definition = Globals().GeneralDatabase;
    definition.db = record[u"db"].Text();
    definition.dbmw = record[u"dbmw"].Text();
    for (const DefinitionColumn& column : kTrimmedColumns) {
        const database::Field field = record[column.name];
        if (!field.IsNull()) definition.*column.field = TrimBlanks(field.Text());
    }
}

QString TextOf(const database::Recordset& record, QStringView column) { return record[column].TextOr(QString()); }

int NumberOf(const database::Recordset& record, QStringView column) { return NumericValue(TextOf(record, column)); }

void TakeInstallation(const database::Recordset& record) {
    EnvironmentDefinition& environment = Globals().Environment;
    environment.OperatingOfficeCode = record[u"運用事業所コード"].TextOr(RepeatZero(kOfficeWidth));
    environment.InstallKind = NumberOf(record, u"インストール区分");
    environment.ClientUpdateKind = NumberOf(record, u"CL更新実行区分");
}

void TakeBackup(const database::Recordset& record) {
    EnvironmentDefinition& environment = Globals().Environment;
    environment.BackupDate = TextOf(record, u"バックアップ日付").left(kDateWidth);
    environment.ConditionSwitchDate = TextOf(record, u"運用条件切替日付").left(kDateWidth);
    environment.BackupMethod = NumberOf(record, u"バックアップ方法");
    environment.BackupDay = NumberOf(record, u"バックアップ日指定");
    for (size_t day = 0; day < kWeekdays.size(); ++day)
        environment.WeekdayBackups[day] = NumberOf(record, kWeekdays[day]);
    environment.BackupStartTime = TextOf(record, u"バックアップ開始時刻");
    environment.BackupFolder = TextOf(record, u"バックアップフォルダ");
}

/// Close throws after a failed read, which is meant to abort the start.
template <typename Take>
void ReadRow(const QString& sql, Take take) {
    database::Recordset record;
    if (OpenConfigRecordset(record, sql)) take(record);
    record.Close();
}

QString EnvironmentStatement() { return u"SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'"_s; }

}  // namespace

void ReadGeneralDatabaseDefinition() {
    ReadRow(u"SELECT * FROM データベース定義 WHERE 情報種類 = 'GNR'"_s, TakeDefinition);
}

void ReadInstallation() { ReadRow(EnvironmentStatement(), TakeInstallation); }

void ReadEnvironmentDefinition() {
    ReadRow(EnvironmentStatement(), [](const database::Recordset& record) {
        TakeInstallation(record);
        TakeBackup(record);
    });
}
