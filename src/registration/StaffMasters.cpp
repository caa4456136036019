#include "registration/StaffMasters.h"

#include <algorithm>

#include "data/Recordsets.h"

using namespace Qt::StringLiterals;

namespace {

QList<MasterEntry> LoadMaster(const StaffItem& item) {
    const QString key = item.key.toString();
    const QString sql = u"SELECT "_s + key + u", 名称 FROM "_s + item.master.toString() + u" ORDER BY "_s + key;
    QList<MasterEntry> entries;
    database::Recordset rows;
    if (OpenRecordset(rows, sql, false)) {
        for (; !rows.AtEOF(); rows.MoveNext())
            entries.append({rows[item.key].TextOr(QString()), rows[u"名称"].TextOr(QString())});
    }
    CloseQuietly(rows);
    return entries;
}

}  // namespace

StaffMasters LoadStaffMasters() {
    StaffMasters masters;
    for (size_t i = 0; i < kStaffItemCount; ++i)
        if (!kStaffItems[i].master.isEmpty()) masters[i] = LoadMaster(kStaffItems[i]);
    return masters;
}

int PlaceOfCode(const QList<MasterEntry>& master, const QString& code) {
    const auto found =
        std::find_if(master.begin(), master.end(), [&](const MasterEntry& entry) { return entry.code == code; });
    return found == master.end() ? -1 : static_cast<int>(found - master.begin());
}
