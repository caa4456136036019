#pragma once

/// Company, office and the name under which a text output is first offered. False when there is no company row.
bool LoadUserInformation();
