// Part of Verbs.h: the verb `links`.
#include "setup/commands/Verbs.h"

#include <QDateTime>
#include <algorithm>

#include "platform/Services.h"
#include "setup/TerminalTable.h"
#include "setup/storage/Installation.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

struct AgeUnit {
    qint64 seconds;
    const char16_t* name;
};
constexpr AgeUnit kAgeUnits[] = {{86400, u"日"}, {3600, u"時間"}, {60, u"分"}, {1, u"秒"}};

/// Age in the largest unit that gives at least 1, rounded down. Negative if the sender's clock is ahead.
QString AgeOf(const QString& stamp, const QDateTime& now) {
    const QDateTime sent = QDateTime::fromString(stamp, u"yyyyMMdd HHmmss"_s);
    if (!sent.isValid()) return u"不明"_s;
    const qint64 age = sent.secsTo(now);
    for (const AgeUnit& unit : kAgeUnits)
        if (std::abs(age) >= unit.seconds) return QString::number(age / unit.seconds) + QString::fromUtf16(unit.name);
    return u"0秒"_s;
}

QString KindName(const QString& kind) {
    if (kind == u"00"_s) return u"開始"_s;
    return kind == u"99"_s ? u"終了"_s : kind;
}

const QStringList kHeading = {u"経過"_s,   u"発信日時"_s, u"区分"_s,   u"発信プログラム"_s, u"受信プログラム"_s,
                              u"事業所"_s, u"担当者"_s,   u"利用者"_s, u"起動連携情報"_s,   u"終了連携情報"_s};

QStringList LineOf(const database::Recordset& row, const QDateTime& now) {
    const auto text = [&](QStringView column) { return StripControlCharacters(row[column].TextOr(u""_s)); };
    const QString sentAt = text(u"発信日時");
    return {AgeOf(sentAt, now),        ReadableTime(sentAt),      KindName(text(u"連携区分")),
            text(u"発信プログラムID"), text(u"受信プログラムID"), text(u"運用事業所コード"),
            text(u"起動担当者コード"), text(u"ユーザID"),         text(u"起動連携情報"),
            text(u"終了連携情報")};
}

/// Heading and pending messages of one file; only those of `user` if it is not empty.
QList<QStringList> WaitingMessages(const QString& file, const QString& user) {
    const QDateTime now = platform::Services().clock->Now();
    database::Connection connection = OpenSuiteFile(file, database::ConnectMode::Read);
    database::Recordset row;
    row.Open(u"SELECT * FROM プログラム連携情報 ORDER BY 発信日時, rowid"_s, connection);
    QList<QStringList> lines{kHeading};
    for (; !row.AtEOF(); row.MoveNext())
        if (user.isEmpty() || row[u"ユーザID"].TextOr(u""_s) == user) lines.append(LineOf(row, now));
    row.Close();
    return lines;
}

void PrintTable(const QList<QStringList>& lines, QTextStream& out) {
    if (lines.size() == 1)
        out << u"待っている連携情報はありません。\n"_s;
    else
        PrintAligned(lines, out);
}

}  // namespace

void ShowLinks(const Arguments& arguments, const Console& console) {
    const QString user = arguments.Value(option::kUser);
    const QList<ConfigurationInUse> files = ConfigurationsInUse(arguments.Installation(), user);
    if (files.isEmpty()) PrintTable({kHeading}, console.out);
    for (qsizetype i = 0; i < files.size(); ++i) {
        if (i > 0) console.out << u'\n';
        const bool common = files[i].user.isEmpty();
        if (!common) console.out << u"利用者 %1\n"_s.arg(files[i].user);
        PrintTable(WaitingMessages(files[i].file, common ? user : QString()), console.out);
    }
}

}  // namespace setup
