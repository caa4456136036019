#pragma once

#include <QDateTime>
#include <QString>

/// "yyyymmdd hhnnss", 15 characters: format of the time stamps in the suite's tables, which sorts chronologically.
inline QString TimeStamp(const QDateTime& time) { return time.toString(QStringLiteral("yyyyMMdd HHmmss")); }
/// "yyyymmdd".
inline QString DateText(const QDate& date) { return date.toString(QStringLiteral("yyyyMMdd")); }
