#pragma once

#include "report-host/template/TemplateDefinition.h"

namespace report {

/// "令和08年11月21日": the year counts from the calendar year in which the newest era up to that day began, as in the
/// dates of the work tables; "2026年11月21日" without such an era.
QString EraDate(QDate day, const QList<EraStart>& eras);

}  // namespace report
