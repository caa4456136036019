#pragma once

#include <QList>
#include <QString>

#include "setup/commands/HistoryRuns.h"

namespace setup {

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
