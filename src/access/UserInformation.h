#pragma once

/// Company, office and the name under which a text output is first offered. False when there is no company row, and
/// when any read on the way fails: the run history has its statement.
bool LoadUserInformation();
