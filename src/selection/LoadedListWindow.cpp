#include "selection/LoadedListWindow.h"

#include "platform/RuntimeError.h"
#include "selection/ListWindow.h"

Form& LoadedOrNew(const QString& name, ListWindow* (*make)(const QString& name)) {
    if (Form* loaded = LoadedForm(name)) return *loaded;
    ListWindow* window = make(name);
    if (window == nullptr) throw platform::RuntimeError(platform::kItemNotFound, name);
    return *window;
}
