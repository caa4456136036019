#include "report-host/template/EraToday.h"

using namespace Qt::StringLiterals;

namespace report {

QString EraDate(QDate day, const QList<EraStart>& eras) {
    const EraStart* newest = nullptr;
    for (const EraStart& era : eras)
        if (era.day <= day && (!newest || newest->day < era.day)) newest = &era;
    const QString year = newest ? newest->name + u"%1"_s.arg(day.year() - newest->day.year() + 1, 2, 10, QChar(u'0'))
                                : QString::number(day.year());
    return year + day.toString(u"年MM月dd日"_s);
}

}  // namespace report
