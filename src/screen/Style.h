#pragma once

class QApplication;

/// The same style, palette and default font on every desktop; the desktop's own dark or contrast palette is not used.
/// Before any window is made.
void ApplySuiteStyle(QApplication& application);
