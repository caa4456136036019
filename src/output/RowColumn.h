#pragma once

#include <QStringView>

#include "globals/StaffRowStore.h"

/// A column of a work table and the text of the list's row that it takes.
struct RowColumn {
    QStringView column;
    StaffText field;
};
