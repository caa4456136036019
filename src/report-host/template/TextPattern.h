#pragma once

#include "report-host/template/TemplateDefinition.h"

namespace report {

/// "TEL [電話]" into its pieces; "[[" is a bracket of the text itself. Throws TemplateError without a line.
TextPattern ReadPattern(const QString& text);

/// Names that are no columns but stand for something in every form.
inline constexpr QStringView kRunningValues[] = {u"頁", u"総頁", u"件数", u"番号", u"本日", u"改行"};
bool IsRunningValue(const QString& name);

}  // namespace report
