#pragma once

#include <QString>

// Names of masters by their code; empty without such a row.

QString LookUpDepartmentName(const QString& code);
QString LookUpSectionName(const QString& code);
