#pragma once

#include <QString>
#include <QStringList>

/// One row of a ListView. The key is "C" and the code: a key may not begin with a digit. It is not asked to be unique,
/// so that a master with a double code can still be read.
struct ListRow {
    QString text;          ///< first column
    QString key;           ///< "C00012"
    QStringList subItems;  ///< further columns, from the second on
    bool checked = false;
};
