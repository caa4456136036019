#pragma once

#include <QString>

#include "database/Database.h"
#include "registration/StaffItems.h"

/// What became of a read, a save or a deletion.
enum class StoreOutcome {
    Done,
    Changed,  ///< somebody else has saved the person since it was read; nothing was written
    Gone,     ///< there is no such person, or not any longer; nothing was written
    Failed,   ///< the database refused; nothing was written, and the run history has its words
};

/// What a row of the viewing log tells.
enum class ViewKind { Looked = 0, Saved = 1 };

/// The staff master as the registration program works with it, on a writing connection of its own. Nothing is held
/// locked between the calls. Reads and writes that fail leave a row エラー in the run history.
class StaffStore {
  public:
    /// False when the general database can't be opened, with a row DB_OPEN ERROR.
    bool Open();

    /// Reads a person. Gone when there is none with that code.
    StoreOutcome Load(const QString& code, StaffRecord& record);
    /// Writes all items with the present time as 更新日付, and the log's row of a save, as one. Empty values are
    /// written as empty texts: other programs read 住所B without asking for a Null.
    StoreOutcome Save(const StaffRecord& before, const StaffValues& entered);
    /// Deletes the person and the personal rights, which would otherwise fall to whoever gets the code next.
    StoreOutcome Delete(const StaffRecord& before);
    /// A row of the viewing log for the launching staff member; none where nobody is known. A failure is not told.
    void LogView(const QString& code, ViewKind kind);

  private:
    template <typename Write>
    StoreOutcome WriteUnlessChanged(const StaffRecord& before, const Write& write);
    bool Read(const QString& code, StaffRecord& record);
    void Execute(const QString& sql);

    database::Connection connection_;
    QString statement_;  ///< the last one, for the row of a failure
};
