#pragma once

#include <QString>
#include <QStringList>

/// Names of a class table in the order of 区分, "" for a Null. Empty if the table cannot be read.
QStringList ReadClassNames(const QString& table);
