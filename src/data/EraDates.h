#pragma once

#include <QByteArrayView>
#include <QString>
#include <vector>

// Dates in Japanese eras. The era is the row of K年号区分 with the latest 開始日付 (yyyymmdd) up to the date; a row
// with an empty 開始日付 is that of the western calendar. Each call of the two procedures runs a statement; nothing is
// cached. `date`: yyyymmdd, not validated. The result is empty if no row applies, or if the table cannot be read
// (recorded in the run history).

/// Formats a date as 昭和40年04月03日; in the western calendar as 1965年04月03日.
QString EraDateLong(const QString& date);
/// Formats a date as 40/04/03, without the era's name since consumers take the first two characters as the year; in the
/// western calendar as 65/04/03.
QString EraDateShort(const QString& date);

/// The era table, read with one statement, for many dates. Digits compare alike on every engine, so dates and 開始日付
/// of digits can be compared here; for other dates the caller uses the procedures above.
class EraCalendar {
  public:
    /// Covers no date.
    EraCalendar() = default;
    /// Reads the table. Covers no date if it cannot be read, which is not recorded, or if it has a 開始日付 with other
    /// characters than digits.
    static EraCalendar Read();

    /// True if Long and Short can format the date. `date` is UTF-8.
    bool Covers(QByteArrayView date) const;
    // As EraDateLong and EraDateShort, for a date that is covered.
    QString Long(const QString& date) const;
    QString Short(const QString& date) const;

  private:
    struct Start {
        QString date;
        QString name;
    };
    const Start* Find(const QString& date) const;

    std::vector<Start> starts_;  // latest first
    bool covers_ = false;
};
