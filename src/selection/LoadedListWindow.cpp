#include "selection/LoadedListWindow.h"

#include <algorithm>

#include "platform/RuntimeError.h"
#include "selection/ListWindow.h"

Form& LoadedOrNew(const QString& name, ListWindow* (*make)(const QString& name)) {
    const std::vector<Form*>& forms = LoadedForms();
    const auto loaded =
        std::find_if(forms.begin(), forms.end(), [&](const Form* form) { return form->Name() == name; });
    if (loaded != forms.end()) return **loaded;
    ListWindow* window = make(name);
    if (window == nullptr) throw platform::RuntimeError(platform::kItemNotFound, name);
    return *window;
}
