#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <set>

namespace setup {

/// A row of the run history as stored in the table.
struct HistoryRow {
    QString time;  ///< yyyymmdd hhnnss
    QString program;
    QString counter;  ///< 12 digits, from 1 in each run
    QString text;     ///< 摘要
    QString office;
    QString staff;
    QString user;
    QString source;  ///< file of the row; the same user name in two files means two users
};

/// The rows written by one process of a program.
struct HistoryRun {
    QList<HistoryRow> rows;
    bool Started() const;  ///< has a start row
    bool Ended() const;    ///< has an end row
    qint64 LastCounter() const { return rows.last().counter.toLongLong(); }
};

/// True for the rows 開始, 終了 and エラー.
bool BeginsRun(const HistoryRow& row);
bool EndsRun(const HistoryRow& row);
bool IsError(const HistoryRow& row);

/// Groups the rows of a history into runs. Programs and users write concurrently, so a row belongs to the run of its
/// program and user whose number it continues. Numbers may be missing, since a row that could not be written still uses
/// one. A row that continues no run begins a run without a start row.
class RunSorter {
  public:
    /// Rows must be added in the order of writing. Returns the index of the row's run in Runs().
    int Add(const HistoryRow& row);
    const QList<HistoryRun>& Runs() const { return runs_; }
    /// Indexes into Runs(), ordered by the time of the first row, newest last.
    QList<int> ByTime() const;

  private:
    /// Runs of one source, program and user without an end row, as indexes into runs_, oldest first.
    struct OpenRuns {
        std::set<int> all;
        QHash<qint64, std::set<int>> byCounter;  // number of the last row
    };
    int FindRun(const OpenRuns& open, qint64 counter) const;

    QList<HistoryRun> runs_;
    QHash<QStringList, OpenRuns> open_;
};

/// Reads the history of one configuration file incrementally. Each poll opens the file read-only and closes it again,
/// so that it never blocks a program.
class HistorySource {
  public:
    explicit HistorySource(const QString& file) : file_(file) {}

    /// Rows written since the last call, oldest first. Throws database::DatabaseError.
    QList<HistoryRow> NewRows();

  private:
    QString file_;
    qint64 lastRow_ = 0;
};

/// The configuration files that contain an installation's history: the common one or, with private copies, one for each
/// user; only that of `user` if it is not empty. Throws UsageError if there is no installation or no such user,
/// database::DatabaseError if the common file can't be read.
QList<HistorySource> HistorySources(const QString& installation, const QString& user);

}  // namespace setup
