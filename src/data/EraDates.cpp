#include "data/EraDates.h"

#include <QStringBuilder>
#include <optional>

#include "data/Recordsets.h"
#include "database/sql/Quoting.h"
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
QString EraYear(const StoredDate& date, const Era& era) {
    return FormatByMask(NumericValue(date.year) - NumericValue(QStringView(era.start).mid(0, 4)) + 1, u"00"_s);
}

}  // namespace

QString EraDateLong(const QString& date) {
    const std::optional<Era> era = FindEra(date);
    if (!era) return QString();
    const StoredDate parts(date);
    const QString year = era->start.isEmpty() ? parts.year.toString() : QString(era->name % EraYear(parts, *era));
    return year % u'年' % parts.month % u'月' % parts.day % u'日';
}

QString EraDateShort(const QString& date) {
    const std::optional<Era> era = FindEra(date);
    if (!era) return QString();
    const StoredDate parts(date);
    const QString year = era->start.isEmpty() ? parts.year.right(2).toString() : EraYear(parts, *era);
    return year % u'/' % parts.month % u'/' % parts.day;
}
