#pragma once

/// Starts the program 要員台帳更新 for the staff member at a position of the list, waits for its end and reloads the
/// row. Ignores an empty position. Any platform::RuntimeError is shown as a message; the main form, disabled for the
/// exchange, then stays disabled.
void LaunchStaffRegistration(int position);
