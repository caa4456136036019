#pragma once

#include <QAccessible>

/// Lets `Factory` say how widgets are read by assistive tools, once for the process; later calls do nothing.
template <QAccessible::InterfaceFactory Factory>
void InstallAccessFactory() {
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory(Factory);
        return true;
    }();
}
