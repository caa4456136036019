#pragma once

#include <QString>

class ListWindow;

/// A new window over the staff by its name; nullptr for a name that is none of them.
ListWindow* MakeStaffListWindow(const QString& name);
