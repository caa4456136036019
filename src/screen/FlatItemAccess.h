#pragma once

/// Tells the accessibility tree how to read flat items. Once is enough; further calls do nothing.
void InstallFlatItemAccess();
