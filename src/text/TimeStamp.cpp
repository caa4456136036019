#include "text/TimeStamp.h"

using namespace Qt::StringLiterals;

QString TimeStamp(const QDateTime& time) { return time.toString(u"yyyyMMdd HHmmss"_s); }

QString DateText(const QDate& date) { return date.toString(u"yyyyMMdd"_s); }
