#pragma once

#include <QString>

#include "database/Database.h"
#include "registration/StaffItems.h"

/// Result of a read, a save or a deletion.
enum class StoreOutcome {
    Done,
    Changed,  ///< another user has saved the person since it was read; nothing was written
    Gone,     ///< the person does not exist, or no longer; nothing was written
    Failed,   ///< the statement failed; nothing was written, the error is in the run history
};

/// 閲覧区分 of a row of the viewing log.
enum class ViewKind { Viewed = 0, Saved = 1 };

/// Access to the staff master on a dedicated writing connection. No locks are kept between calls: Save and Delete
/// compare the row with `before`, the record as it was read, and write only if it is unchanged. A failed read or write
/// leaves a row エラー in the run history. Nothing throws.
class StaffStore {
  public:
    /// To be called first. False if the general database cannot be opened; a row DB_OPEN ERROR is recorded.
    bool Open();

    /// Reads a person. Gone, with `record` unchanged, if there is none with that code.
    StoreOutcome Load(const QString& code, StaffRecord& record);
    /// Writes all items and the current time as 更新日付, and a row Saved of the viewing log, in one transaction. Empty
    /// values are written as empty texts: other programs read 住所B without a Null check.
    StoreOutcome Save(const StaffRecord& before, const StaffValues& entered);
    /// Deletes the person and the personal rights, which would otherwise apply to the next person with that code.
    StoreOutcome Delete(const StaffRecord& before);
    /// Writes a row of the viewing log for the launching staff member; none if that is unknown. A failure is only
    /// recorded.
    void LogView(const QString& code, ViewKind kind);

  private:
    template <typename Write>
    StoreOutcome WriteUnlessChanged(const StaffRecord& before, const Write& write);
    bool Read(const QString& code, StaffRecord& record);
    void Execute(const QString& sql);

    database::Connection connection_;
    QString statement_;  ///< the last one, for the history row of a failure
};
