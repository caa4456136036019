#pragma once

/// Loads company and office and sets the default file name of a text output. False if there is no company row or any
/// read fails; the failed statement is in the run history.
bool LoadUserInformation();
