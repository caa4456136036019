#pragma once

#include <QString>

class ListWindow;

/// A new window over the masters by its name; nullptr for a name that is none of them.
ListWindow* MakeMasterListWindow(const QString& name);
