#include "data/EraDates.h"

#include <QStringBuilder>
#include <algorithm>
#include <optional>

#include "data/Recordsets.h"
#include "database/sql/Quoting.h"
#include "globals/ProgramGlobals.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

/// Slices a stored date by position without validation. Must not outlive the date.
struct StoredDate {
    explicit StoredDate(QStringView date) : year(date.mid(0, 4)), month(date.mid(4, 2)), day(date.mid(6, 2)) {}
    QStringView year, month, day;
};

struct Era {
    QString start;  ///< yyyymmdd; empty for the row of the western calendar
    QString name;
};

std::optional<Era> FindEra(const QString& date) {
    database::Recordset record;
    std::optional<Era> era;
    const QString sql = u"SELECT TOP 1 * FROM K年号区分 WHERE 開始日付 <= "_s % database::TextLiteral(date) %
                        u" ORDER BY 開始日付 DESC";
    if (OpenRecordset(record, sql)) era = Era{record[u"開始日付"].Text(), record[u"名称"].TextOr(QString())};
    CloseQuietly(record);
    return era;
}

/// Year 1 is the calendar year in which the era begins, and years change on 1 January, whatever the era's first day is.
QString EraYear(const StoredDate& date, const QString& start) {
    return FormatByMask(NumericValue(date.year) - NumericValue(QStringView(start).mid(0, 4)) + 1, u"00"_s);
}

QString FormatLong(const QString& date, const QString& start, const QString& name) {
    const StoredDate parts(date);
    const QString year = start.isEmpty() ? parts.year.toString() : QString(name % EraYear(parts, start));
    return year % u'年' % parts.month % u'月' % parts.day % u'日';
}

QString FormatShort(const QString& date, const QString& start) {
    const StoredDate parts(date);
    const QString year = start.isEmpty() ? parts.year.right(2).toString() : EraYear(parts, start);
    return year % u'/' % parts.month % u'/' % parts.day;
}

bool IsDigits(QByteArrayView text) {
    return std::all_of(text.begin(), text.end(), [](char unit) { return unit >= '0' && unit <= '9'; });
}

}  // namespace

QString EraDateLong(const QString& date) {
    const std::optional<Era> era = FindEra(date);
    return era ? FormatLong(date, era->start, era->name) : QString();
}

QString EraDateShort(const QString& date) {
    const std::optional<Era> era = FindEra(date);
    return era ? FormatShort(date, era->start) : QString();
}

EraCalendar EraCalendar::Read() {
    constexpr int kMostEras = 1000;
    EraCalendar calendar;
    try {
        database::Recordset record;
        record.Open(u"SELECT TOP %1 * FROM K年号区分 ORDER BY 開始日付 DESC"_s.arg(kMostEras + 1),
                    Globals().MainConnection);
        const database::ResultRows rows = record.Rows();
        const int start = rows.ColumnOf(u"開始日付");
        const int name = rows.ColumnOf(u"名称");
        calendar.covers_ = rows.Count() <= kMostEras;
        for (int row = 0; row < rows.Count(); ++row) {
            if (rows.IsNull(row, start)) continue;
            calendar.covers_ = calendar.covers_ && IsDigits(rows.Utf8(row, start));
            calendar.starts_.push_back({rows.Text(row, start), rows.Text(row, name)});
        }
    } catch (const database::DatabaseError&) {
        return {};
    }
    return calendar;
}

bool EraCalendar::Covers(QByteArrayView date) const { return covers_ && IsDigits(date); }

const EraCalendar::Start* EraCalendar::Find(const QString& date) const {
    const auto found =
        std::find_if(starts_.begin(), starts_.end(), [&](const Start& start) { return start.date <= date; });
    return found == starts_.end() ? nullptr : &*found;
}

QString EraCalendar::Long(const QString& date) const {
    const Start* era = Find(date);
    return era == nullptr ? QString() : FormatLong(date, era->date, era->name);
}

QString EraCalendar::Short(const QString& date) const {
    const Start* era = Find(date);
    return era == nullptr ? QString() : FormatShort(date, era->date);
}
