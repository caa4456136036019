#include "setup/commands/HistoryRuns.h"

#include <algorithm>
#include <numeric>

#include "setup/TerminalTable.h"
#include "setup/storage/Installation.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr int kCounterWidth = 4, kTimeWidth = 19, kOfficeWidth = 6, kStaffWidth = 6;

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

HistoryRow RowOf(const database::Recordset& row, const QString& file) {
    const auto text = [&](QStringView column) { return row[column].TextOr(u""_s); };
    return {.time = text(u"実行日付"),
            .program = text(u"プログラムID"),
            .counter = text(u"proccounter"),
            .text = text(u"摘要"),
            .office = text(u"運用事業所コード"),
            .staff = text(u"起動担当者コード"),
            .user = text(u"ユーザID"),
            .source = file};
}

}  // namespace

bool BeginsRun(const HistoryRow& row) { return row.text == u"開始"_s || row.text.startsWith(u"開始 "_s); }
bool EndsRun(const HistoryRow& row) { return row.text == u"終了"_s; }

bool HistoryRun::Started() const { return BeginsRun(rows.first()); }
bool HistoryRun::Ended() const { return EndsRun(rows.last()); }

int RunSorter::Add(const HistoryRow& row) {
    QList<int>& open = open_[{row.source, row.program, row.user}];
    const double counter = row.counter.toDouble();
    int found = -1;
    if (!BeginsRun(row))
        for (const int place : open) {
            const double last = runs_[place].LastCounter();
            // Prefer a run that the number continues without a gap, otherwise the newest run that it can follow.
            if (last < counter && (found < 0 || last + 1 == counter || runs_[found].LastCounter() + 1 != counter))
                found = place;
        }
    if (found < 0) {
        found = static_cast<int>(runs_.size());
        runs_.append(HistoryRun{});
        open.append(found);
    }
    runs_[found].rows.append(row);
    if (EndsRun(row)) open.removeOne(found);
    return found;
}

QList<int> RunSorter::ByTime() const {
    QList<int> places(runs_.size());
    std::iota(places.begin(), places.end(), 0);
    std::stable_sort(places.begin(), places.end(), [&](int left, int right) {
        return runs_[left].rows.first().time < runs_[right].rows.first().time;
    });
    return places;
}

QString RunTitle(const QString& name, const HistoryRow& first) {
    return u"%1  %2  %3  %4"_s.arg(name, ReadableTime(first.time), first.program, first.user);
}

QString RowHeading() { return Columns(u"番号"_s, u"日時"_s, u"事業所"_s, u"担当者"_s, u"摘要"_s); }

QString RowLine(const HistoryRow& row) {
    return Columns(WithoutLeadingZeros(row.counter), ReadableTime(row.time), row.office, row.staff,
                   StripControlCharacters(row.text));
}

QStringList RunLines(const HistoryRun& run, int number) {
    QStringList lines{RunTitle(u"実行 %1"_s.arg(number), run.rows.first()), RowHeading()};
    if (!run.Started()) lines.append(u"      （開始の行がありません）"_s);
    for (const HistoryRow& row : run.rows) lines.append(RowLine(row));
    if (!run.Ended()) lines.append(u"      （終了の行がありません）"_s);
    return lines;
}

QList<HistoryRow> HistorySource::NewRows() {
    database::Connection connection = OpenSuiteFile(file_, database::ConnectMode::Read);
    database::Recordset row;
    row.Open(
        u"SELECT rowid AS 行, 実行日付, プログラムID, proccounter, 摘要, 運用事業所コード, 起動担当者コード,"
        u" ユーザID FROM プログラム稼動履歴 WHERE rowid > %1 ORDER BY rowid"_s.arg(lastRow_),
        connection);
    QList<HistoryRow> rows;
    for (; !row.AtEOF(); row.MoveNext()) {
        rows.append(RowOf(row, file_));
        lastRow_ = row[u"行"].Text().toLongLong();
    }
    row.Close();
    return rows;
}

QList<HistorySource> HistorySources(const QString& installation, const QString& user) {
    QList<HistorySource> sources;
    for (const ConfigurationInUse& configuration : ConfigurationsInUse(installation, user))
        sources.append(HistorySource(configuration.file));
    return sources;
}

}  // namespace setup
