#pragma once

#include <QString>

#include "database/Database.h"

/// SELECT of one office by its code.
QString OfficeStatement(const QString& code);

/// Opens the row of the operating office, or the row "000", which then becomes the operating office. True if there is a
/// row. Throws database::DatabaseError if a read fails; nothing is changed then.
bool OpenOperatingOffice(database::Recordset& row);
