#pragma once

#include <QString>

/// The part that a search and the re-read of one row share: "SELECT", columns and FROM, up to the blank before
/// " WHERE".
QString StaffStatementHead();
