#pragma once

#include "report-host/FormDefinition.h"

namespace report {

/// "TEL [電話]" into its pieces; "[[" is a bracket of the text itself. Throws FormMistake without a line.
TextPattern ReadPattern(const QString& text);

/// Running values, which are no columns.
inline constexpr QStringView kRunningValues[] = {u"頁", u"総頁", u"件数", u"番号", u"本日"};
bool IsRunningValue(const QString& name);

}  // namespace report
