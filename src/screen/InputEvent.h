#pragma once

#include <QEvent>

/// True for events caused by keyboard, mouse, touch, pen or input method. Leave events and the close event do not
/// count.
bool IsInput(QEvent::Type type);
