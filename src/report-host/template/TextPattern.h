#pragma once

#include "report-host/template/TemplateDefinition.h"

namespace report {

/// Parses "TEL [電話]" into literals and fields; "[[" is a literal bracket. Throws TemplateError without a line number.
TextPattern ReadPattern(const QString& text);

/// Names of the built-in fields, available in every template: page, number of pages, number of rows, number of the row,
/// date of today, line break.
inline constexpr QStringView kRunningValues[] = {u"頁", u"総頁", u"件数", u"番号", u"本日", u"改行"};
bool IsRunningValue(const QString& name);

}  // namespace report
