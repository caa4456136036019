#pragma once

#include <QList>
#include <QString>

#include "setup/commands/HistoryRuns.h"

namespace setup {

/// Reads the history of one configuration file, bit by bit. Each look opens the file anew and for reading only, so it
/// never stands in a program's way.
class HistorySource {
  public:
    explicit HistorySource(const QString& file) : file_(file) {}

    /// Rows written since the last look, oldest first. Throws database::DatabaseError.
    QList<HistoryRow> NewRows();

  private:
    QString file_;
    qint64 lastRow_ = 0;
};

/// The configuration files that hold an installation's history: the common one, or with private copies one for each
/// user; of these only that of `user` when it is not empty. Throws UsageError when there is no installation or no such
/// user, database::DatabaseError when the common file can't be read.
QList<HistorySource> HistorySources(const QString& installation, const QString& user);

}  // namespace setup
