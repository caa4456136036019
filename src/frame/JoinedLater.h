#pragma once

#include <QString>

// What belongs to rooms that are not built yet. Each procedure does nothing and answers success, so that the program
// runs without it; whoever builds the room takes its procedures out of here.

/// Makes the user's own copies of configuration and report files where they are missing.
void PrepareUserConfig();

