#pragma once

#include <QString>

class Form;
class ListWindow;

/// The loaded form of that name, hidden or not; where there is none, a new window by its maker. RuntimeError for a name
/// that the maker does not know.
Form& LoadedOrNew(const QString& name, ListWindow* (*make)(const QString& name));
