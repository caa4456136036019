#pragma once

#include "report-host/template/TemplateDefinition.h"

namespace report {

/// Formats a date as "令和08年11月21日", with the newest era that has begun by that day. The year of the era is counted
/// by calendar years, as in the work tables. Without an era: "2026年11月21日".
QString EraDate(QDate day, const QList<EraStart>& eras);

}  // namespace report
