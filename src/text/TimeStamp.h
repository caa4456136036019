#pragma once

#include <QDateTime>
#include <QString>

/// "yyyymmdd hhnnss", 15 characters: the form of every stamp in the suite's tables, in which text order is time
/// order.
QString TimeStamp(const QDateTime& time);
/// "yyyymmdd".
QString DateText(const QDate& date);
