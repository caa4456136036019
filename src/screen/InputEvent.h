#pragma once

#include <QEvent>

/// True for events caused by keyboard, mouse, touch, pen or input method, but not for those by which the pointer leaves
/// a widget, nor for the close event.
bool IsInput(QEvent::Type type);
