#include "frame/JoinedLater.h"

void PrepareUserConfig() {}

void OpenSelectionWindow(const QString&) {}
