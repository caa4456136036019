#pragma once

#include <QDateTime>
#include <QString>

/// Formats a time as "20260401 235959", 15 characters: the time stamps in the suite's tables. Text order is
/// chronological.
inline QString TimeStamp(const QDateTime& time) { return time.toString(QStringLiteral("yyyyMMdd HHmmss")); }
/// Formats a date as "20260401", 8 characters.
inline QString DateText(const QDate& date) { return date.toString(QStringLiteral("yyyyMMdd")); }
