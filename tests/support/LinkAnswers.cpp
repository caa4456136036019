#include "support/LinkAnswers.h"

#include "text/TimeStamp.h"

using namespace Qt::StringLiterals;

void AddLinkRow(const SampleFile& configuration, const LinkRow& row) {
    QStringList values;
    for (const QString& value : {row.sentAt, row.sender, row.receiver, row.sentAt, row.kind, row.key, row.endText,
                                 u"000"_s, u"00001"_s, u"tester"_s})
        values << SqlLiteral(value);
    configuration.Execute(
        u"INSERT INTO プログラム連携情報 (発信日時, 発信プログラムID, 受信プログラムID, 受信期限, "
        u"連携区分, 起動連携情報, 終了連携情報, 運用事業所コード, 起動担当者コード, ユーザID) VALUES ("_s +
        values.join(u", "_s) + u')');
}

QList<QStringList> LinkRows(const SampleFile& configuration) {
    return configuration.Rows(
        u"SELECT 発信日時, 発信プログラムID, 受信プログラムID, 受信期限, 連携区分, 起動連携情報, 終了連携情報, "
        u"運用事業所コード, 起動担当者コード, ユーザID FROM プログラム連携情報 ORDER BY rowid"_s);
}

void AnswerAtOnce(const TestServices& services, const SampleInstallation& installation,
                  const std::function<void(const RecordingProcesses::Start&)>& callback) {
    services.processes.started = [&services, &installation, callback](const RecordingProcesses::Start& start) {
        installation.Configuration().Execute(u"DELETE FROM プログラム連携情報 WHERE 連携区分 = '00'"_s);
        callback(start);
        AddLinkRow(installation.Configuration(), {.sentAt = TimeStamp(services.clock.now), .key = start.arguments});
    };
}
