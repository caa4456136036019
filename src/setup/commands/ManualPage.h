#pragma once

#include <QString>

namespace setup {

/// suite-setup(1) as roff source in UTF-8, in "ja" or "en", from the table of verbs. The package's build writes it to a
/// file. Throws UsageError for any other language.
QString ManualPage(const QString& language);

}  // namespace setup
