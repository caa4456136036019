#pragma once

#include <QString>

#include "database/Database.h"

/// The statement that reads one office by its code.
QString OfficeStatement(const QString& code);

/// Opens the row of the operating office, or else the row "000", which is then made the operating office. True when
/// there is a row. Throws database::DatabaseError after a failed read and has changed nothing then.
bool OpenOperatingOffice(database::Recordset& row);
