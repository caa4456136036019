#include "setup/commands/HistoryRuns.h"

#include <algorithm>
#include <numeric>

#include "setup/storage/Installation.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

/// Columns of the statement of NewRows, in its order.
enum Column { kRowId, kTime, kProgram, kCounter, kText, kOffice, kStaff, kUser };

HistoryRow RowOf(const database::Recordset& row, const QString& file) {
    const auto text = [&](Column column) { return row.FieldAt(column).TextOr(u""_s); };
    return {.time = text(kTime),
            .program = text(kProgram),
            .counter = text(kCounter),
            .text = text(kText),
            .office = text(kOffice),
            .staff = text(kStaff),
            .user = text(kUser),
            .source = file};
}

}  // namespace

bool BeginsRun(const HistoryRow& row) { return row.text == u"開始"_s || row.text.startsWith(u"開始 "_s); }
bool EndsRun(const HistoryRow& row) { return row.text == u"終了"_s; }
bool IsError(const HistoryRow& row) { return row.text.startsWith(u"エラー "_s); }

bool HistoryRun::Started() const { return BeginsRun(rows.first()); }
bool HistoryRun::Ended() const { return EndsRun(rows.last()); }

int RunSorter::FindRun(const OpenRuns& open, qint64 counter) const {
    // Prefer a run that the number continues without a gap, otherwise the newest run that it can follow.
    if (const auto exact = open.byCounter.find(counter - 1); exact != open.byCounter.end() && !exact->empty())
        return *exact->rbegin();
    for (auto place = open.all.rbegin(); place != open.all.rend(); ++place)
        if (runs_[*place].LastCounter() < counter) return *place;
    return -1;
}

int RunSorter::Add(const HistoryRow& row) {
    OpenRuns& open = open_[{row.source, row.program, row.user}];
    const qint64 counter = row.counter.toLongLong();
    int found = BeginsRun(row) ? -1 : FindRun(open, counter);
    if (found < 0) {
        found = static_cast<int>(runs_.size());
        runs_.append(HistoryRun{});
        open.all.insert(found);
    } else {
        open.byCounter[runs_[found].LastCounter()].erase(found);
    }
    runs_[found].rows.append(row);
    if (EndsRun(row))
        open.all.erase(found);
    else
        open.byCounter[counter].insert(found);
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
        lastRow_ = row.FieldAt(kRowId).Text().toLongLong();
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
