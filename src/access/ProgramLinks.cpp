#include "access/ProgramLinks.h"

#include "access/ProgramRights.h"
#include "data/Connections.h"
#include "data/Recordsets.h"
#include "database/sql/Quoting.h"
#include "globals/ProgramGlobals.h"
#include "platform/Services.h"
#include "screen/Form.h"
#include "text/TimeStamp.h"

using namespace Qt::StringLiterals;
using database::TextLiteral;  // keeps trailing blanks, which belong to a key

namespace {

const QString kStart = u"00"_s;
const QString kEnd = u"99"_s;

constexpr int kStartDelay = 100;   // milliseconds between start message and program start
constexpr int kPollInterval = 20;  // milliseconds, poll interval

QString Present() { return TimeStamp(platform::Services().clock->Now()); }

struct LinkMessage {
    QString sentAt, sender, receiver, validUntil, kind, key, endText;
};

QString InsertStatement(const LinkMessage& message) {
    const ProgramGlobals& globals = Globals();
    const QStringList values = {TextLiteral(message.sentAt),
                                TextLiteral(message.sender),
                                TextLiteral(message.receiver),
                                TextLiteral(message.validUntil),
                                TextLiteral(message.kind),
                                TextLiteral(message.key),
                                TextLiteral(message.endText),
                                TextLiteral(globals.Environment.OperatingOfficeCode),
                                TextLiteral(globals.Staff.LaunchingStaffCode),
                                TextLiteral(globals.UserId)};
    return u"INSERT INTO プログラム連携情報 ("
           u"発信日時,発信プログラムID,受信プログラムID,受信期限,連携区分,起動連携情報,終了連携情報,"
           u"運用事業所コード,起動担当者コード,ユーザID)VALUES ("_s +
           values.join(u", "_s) + u')';
}

/// Reconnects after the write, so that the next read of the channel is up to date. True if the message was written.
bool Post(const LinkMessage& message) {
    const bool written = ExecuteConfigSql(InsertStatement(message));
    ReconnectConfigConnection();
    return written;
}

/// DELETE of a received message. Without `key` it matches all messages sent in the same second between the same
/// programs: a start message is removed this way, together with a second one of that second.
QString DeleteStatement(const database::Recordset& message, const QString& kind, const QString& key = {}) {
    const auto value = [&](QStringView column) { return TextLiteral(message[column].TextOr(QString())); };
    const QString oneKey = key.isNull() ? QString() : u" AND 起動連携情報 = "_s + TextLiteral(key);
    return u"DELETE FROM プログラム連携情報 WHERE 発信日時 = "_s + value(u"発信日時") + u" AND 発信プログラムID = "_s +
           value(u"発信プログラムID") + u" AND 受信プログラムID = "_s + value(u"受信プログラムID") + oneKey +
           u" AND 連携区分 = "_s + TextLiteral(kind);
}

void TakeStartMessage(const QString& commandLine, const QString& earliest) {
    ProgramGlobals& globals = Globals();
    database::Recordset message;
    const QString sql = u"SELECT * FROM プログラム連携情報 WHERE 発信日時 >= "_s + TextLiteral(earliest) +
                        u" AND 受信プログラムID = "_s + TextLiteral(globals.ProgramId) + u" AND 起動連携情報 = "_s +
                        TextLiteral(commandLine) + u" AND 連携区分 = "_s + TextLiteral(kStart);
    if (OpenConfigRecordset(message, sql)) {
        globals.LinkSenderId = message[u"発信プログラムID"].TextOr(QString());
        globals.LinkStartInfo = message[u"起動連携情報"].Text();
        globals.LinkStartedAt = message[u"発信日時"].TextOr(QString());
        ExecuteConfigSql(DeleteStatement(message, kStart));
    }
    message.Close();
}

}  // namespace

void ReceiveStartLink(const QString& commandLine, const QString& earliest) {
    Globals().LinkSenderId = QString();
    Globals().LinkStartedAt.clear();
    try {
        TakeStartMessage(commandLine, earliest);
    } catch (const platform::RuntimeError&) {
        return;
    }
}

bool AnswerStarter() {
    ProgramGlobals& globals = Globals();
    if (globals.LinkStartInfo.isEmpty()) return true;
    if (Present() < globals.LinkStartedAt || !WriteEndLink(globals.LinkEndInfo)) return false;
    globals.LinkStartInfo.clear();
    return true;
}

bool WriteEndLink(const QString& text) {
    ProgramGlobals& globals = Globals();
    try {
        LoadLaunchStaffCode();
    } catch (const platform::RuntimeError&) {
        // The answer must be sent even without the staff code: the starter waits for it without a timeout.
    }
    globals.LinkEndInfo = text;
    const QString now = Present();
    return Post({.sentAt = now,
                 .sender = globals.LinkSenderId,
                 .receiver = globals.ProgramId,
                 .validUntil = now,
                 .kind = kEnd,
                 .key = globals.LinkStartInfo,
                 .endText = globals.LinkEndInfo});
}

void SendStartLink(const QString& sender, const QString& receiver, const QString& key) {
    LoadLaunchStaffCode();
    const QString sentAt = Present();
    const QString validUntil = Present();
    Post({.sentAt = sentAt,
          .sender = sender,
          .receiver = receiver,
          .validUntil = validUntil,
          .kind = kStart,
          .key = key,
          .endText = QString()});
}

QString ReceiveEndLink(const QString& sender, const QString& receiver, const QString& key, const QString& earliest) {
    database::Recordset message;
    QString found;
    const QString sql = u"SELECT * FROM プログラム連携情報 WHERE 発信日時 >= "_s + TextLiteral(earliest) +
                        u" AND 発信プログラムID = "_s + TextLiteral(sender) + u" AND 受信プログラムID = "_s +
                        TextLiteral(receiver) + u" AND 起動連携情報 = "_s + TextLiteral(key) + u" AND 連携区分 = "_s +
                        TextLiteral(kEnd);
    if (OpenConfigRecordset(message, sql)) {
        found = message[u"起動連携情報"].Text();
        Globals().LinkEndInfo = message[u"終了連携情報"].TextOr(QString());
        ExecuteConfigSql(DeleteStatement(message, kEnd, found));
    }
    CloseQuietly(message);
    return found;
}

void SendLinkMessage(const QString& receiver, const QString& key) {
    Globals().MainForm->SetEnabled(false);
    SendStartLink(Globals().ProgramId, receiver, key);
    ReconnectConfigConnection();
    platform::ProcessEvents();
    platform::Services().clock->Sleep(kStartDelay);
}

void WaitForLinkedProgram(const QString& sibling, const QString& key, const QString& earliest) {
    ProgramGlobals& globals = Globals();
    globals.LinkWaiting = true;
    QString answered;
    // No timeout: the user may work in the other program all day.
    while (answered.isEmpty()) {
        if (ReconnectConfigConnection()) answered = ReceiveEndLink(globals.ProgramId, sibling, key, earliest);
        platform::Services().clock->Sleep(kPollInterval);
        platform::ProcessEvents();
    }
    globals.LinkWaiting = false;
    globals.MainForm->SetEnabled(true);
}
