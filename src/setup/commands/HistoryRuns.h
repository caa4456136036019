#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace setup {

/// A row of the run history as it stands in the table.
struct HistoryRow {
    QString time;  ///< yyyymmdd hhnnss
    QString program;
    QString counter;  ///< 12 digits, from 1 in each run
    QString text;     ///< 摘要
    QString office;
    QString staff;
    QString user;
    QString source;  ///< file that the row was read from: equal users of two files are two
};

/// What one start of one program wrote.
struct HistoryRun {
    QList<HistoryRow> rows;
    bool Started() const;
    bool Ended() const;
    double LastCounter() const { return rows.last().counter.toDouble(); }
};

bool BeginsRun(const HistoryRow& row);
bool EndsRun(const HistoryRow& row);

/// Tells the runs of a history apart. Programs and users write into each other's rows, so a row goes to the run of
/// its program and user whose number it continues; a number may be missing, since a row that could not be written
/// uses one up. A row that continues none is a run without a beginning.
class RunSorter {
  public:
    /// Rows in the order in which they were written. The result is the place of its run in Runs().
    int Add(const HistoryRow& row);
    const QList<HistoryRun>& Runs() const { return runs_; }
    /// Places in Runs() by time of the first row, newest last.
    QList<int> ByTime() const;

  private:
    QList<HistoryRun> runs_;
    QHash<QStringList, QList<int>> open_;  // by source, program and user
};

/// Lines for people. Columns are aligned by what a terminal shows; 摘要 stands last and is never cut.
QString RunTitle(const QString& name, const HistoryRow& first);
QString RowHeading();
QString RowLine(const HistoryRow& row);
/// A whole run under its title; `number` counts from the newest, which is 1.
QStringList RunLines(const HistoryRun& run, int number);

}  // namespace setup
