#include "setup/commands/HistoryText.h"

#include <algorithm>

#include "setup/TerminalTable.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr int kCounterWidth = 4, kTimeWidth = 19, kOfficeWidth = 6, kStaffWidth = 6;
const QString kRemarkIndent = u"      "_s;

QString Columns(const QString& counter, const QString& time, const QString& office, const QString& staff,
                const QString& text) {
    return PadLeft(counter, kCounterWidth) + u"  "_s + PadRight(time, kTimeWidth) + u"  "_s +
           PadRight(office, kOfficeWidth) + u"  "_s + PadRight(staff, kStaffWidth) + u"  "_s + text;
}

QString WithoutLeadingZeros(const QString& counter) {
    qsizetype zeros = 0;
    while (zeros + 1 < counter.size() && counter[zeros] == u'0') ++zeros;
    return counter.mid(zeros);
}

/// Where the statement begins; -1 if there is none. An error's description is followed by its statement at once.
qsizetype StatementIn(const QString& text) {
    if (!text.startsWith(u"エラー "_s) && !text.startsWith(u"出力終了 "_s)) return -1;
    qsizetype first = -1;
    for (const QStringView word : {u"SELECT ", u"INSERT INTO ", u"UPDATE ", u"DELETE FROM "}) {
        const qsizetype at = text.indexOf(word);
        if (at >= 0 && (first < 0 || at < first)) first = at;
    }
    return first;
}

QString EndOf(const HistoryRun& run) { return run.Ended() ? ReadableTime(run.rows.last().time) : u"（なし）"_s; }

/// The start command, or a remark without one.
QString CommandOf(const HistoryRun& run) {
    if (!run.Started()) return u"（開始の行がありません）"_s;
    return StripControlCharacters(run.rows.first().text.mid(3)).trimmed();
}

QByteArray CsvCells(const QStringList& cells) {
    QString line;
    for (const QString& cell : cells)
        line += (line.isEmpty() ? u"\""_s : u",\""_s) + QString(cell).replace(u'"', u"\"\""_s) + u'"';
    return (line + u"\r\n"_s).toUtf8();
}

}  // namespace

HistoryText PartsOf(const HistoryRow& row) {
    const qsizetype at = StatementIn(row.text);
    if (at < 0) return {.head = row.text};
    return {.head = row.text.first(at).trimmed(), .statement = row.text.sliced(at).replace(u"''"_s, u"'"_s)};
}

QString RunTitle(const QString& name, const HistoryRow& first) {
    return u"%1  %2  %3  %4"_s.arg(name, ReadableTime(first.time), first.program, first.user);
}

QString RowHeading() { return Columns(u"番号"_s, u"日時"_s, u"事業所"_s, u"担当者"_s, u"摘要"_s); }

QStringList RowLines(const HistoryRow& row) {
    const HistoryText text = PartsOf(row);
    QStringList lines{Columns(WithoutLeadingZeros(row.counter), ReadableTime(row.time), row.office, row.staff,
                              StripControlCharacters(text.head))};
    if (!text.statement.isEmpty()) lines.append(kRemarkIndent + StripControlCharacters(text.statement));
    return lines;
}

QStringList RunLines(const HistoryRun& run, int number) {
    QStringList lines{RunTitle(u"実行 %1"_s.arg(number), run.rows.first()), RowHeading()};
    if (!run.Started()) lines.append(kRemarkIndent + u"（開始の行がありません）"_s);
    for (const HistoryRow& row : run.rows) lines += RowLines(row);
    if (!run.Ended()) lines.append(kRemarkIndent + u"（終了の行がありません）"_s);
    return lines;
}

QStringList ErrorLines(const HistoryRun& run, int number) {
    QStringList lines{RunTitle(u"実行 %1"_s.arg(number), run.rows.first()), RowHeading()};
    for (const HistoryRow& row : run.rows)
        if (IsError(row)) lines += RowLines(row);
    return lines;
}

QStringList RunCells(const HistoryRun& run, int number) {
    const HistoryRow& first = run.rows.first();
    const auto errors = std::count_if(run.rows.begin(), run.rows.end(), IsError);
    return {QString::number(number),          ReadableTime(first.time), EndOf(run),    first.user, first.program,
            QString::number(run.rows.size()), QString::number(errors),  CommandOf(run)};
}

QStringList RunCellsHeading() {
    return {u"実行"_s, u"開始"_s, u"終了"_s, u"利用者"_s, u"プログラム"_s, u"行"_s, u"エラー"_s, u"起動コマンド"_s};
}

QByteArray CsvLine(const HistoryRow& row, int run) {
    const HistoryText text = PartsOf(row);
    return CsvCells({QString::number(run), ReadableTime(row.time), row.program, row.user,
                     WithoutLeadingZeros(row.counter), row.office, row.staff, text.head, text.statement});
}

QByteArray CsvHeading() {
    return "\xEF\xBB\xBF" + CsvCells({u"実行"_s, u"日時"_s, u"プログラム"_s, u"利用者"_s, u"番号"_s, u"事業所"_s,
                                      u"担当者"_s, u"摘要"_s, u"SQL"_s});
}

}  // namespace setup
