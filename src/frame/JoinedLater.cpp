#include "frame/JoinedLater.h"

void PrepareUserConfig() {}

