#include "data/RunHistory.h"

#include "database/sql/Quoting.h"
#include "globals/ProgramGlobals.h"
#include "platform/Services.h"
#include "text/TimeStamp.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

/// Ignores a failure: the history must not disturb what it records.
void WriteSwallowing(const QString& content) {
    try {
        InsertHistoryRow(content);
    } catch (const platform::RuntimeError&) {
        return;
    }
}

QString QuotedTwice(const QString& text) { return QuoteSqlText(QuoteSqlText(text)); }

/// The suite's update monitor would log this text every minute.
bool IsMonitorNoise(const QString& text) {
    return Globals().ProgramId.contains(u"更新モニタ"_s, Qt::CaseInsensitive) &&
           text.contains(u"未集計情報"_s, Qt::CaseInsensitive);
}

QString Twelve(double counter) { return QString::number(static_cast<qint64>(counter)).rightJustified(12, u'0'); }

}  // namespace

QString BuildHistoryStatement(const QString& content) {
    const ProgramGlobals& globals = Globals();
    const QString stamp = TimeStamp(platform::Services().clock->Now());
    return u"INSERT INTO プログラム稼動履歴 ("
           u"実行日付,プログラムID,proccounter,摘要,運用事業所コード,起動担当者コード,ユーザID)"
           u"VALUES ("_s +
           QStringList{database::TextLiteral(stamp),
                       database::TextLiteral(globals.ProgramId),
                       database::TextLiteral(Twelve(globals.ProcCounter)),
                       u'\'' + content + u'\'',
                       database::TextLiteral(globals.Environment.OperatingOfficeCode),
                       database::TextLiteral(globals.Staff.LaunchingStaffCode),
                       u'\'' + QuoteSqlText(globals.UserId) + u'\''}
               .join(u", "_s) +
           u')';
}

void InsertHistoryRow(const QString& content) {
    Globals().ProcCounter += 1;
    Globals().ConfigConnection.Execute(BuildHistoryStatement(content));
}

void RecordRunEnd() { WriteSwallowing(u"終了"_s); }

void RecordOutputStart(const QString& text) { WriteSwallowing(u"出力開始 "_s + QuotedTwice(text)); }

void RecordOutputEnd(const QString& text) {
    if (!IsMonitorNoise(text)) WriteSwallowing(u"出力終了 "_s + QuotedTwice(text));
}

void RecordRunError(const QString& text) { WriteSwallowing(u"エラー "_s + QuotedTwice(text)); }
