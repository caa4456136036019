#pragma once

#include <QDateTime>
#include <QString>

/// "yyyymmdd hhnnss", 15 characters: format of the time stamps in the suite's tables, which sorts chronologically.
QString TimeStamp(const QDateTime& time);
/// "yyyymmdd".
QString DateText(const QDate& date);
