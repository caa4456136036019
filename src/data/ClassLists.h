#pragma once

#include <QString>
#include <QStringList>

/// The names of a class table in the order of 区分, "" for a Null. A table that cannot be read counts as empty.
QStringList ReadClassNames(const QString& table);
