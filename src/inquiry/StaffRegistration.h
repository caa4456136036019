#pragma once

/// Opens the program 要員台帳更新 on the staff member at the list's position, waits for its end and reads the row
/// again. A blank position does nothing. Any failure on the way shows a message; the main form then stays disabled, as
/// it was for the exchange.
void LaunchStaffRegistration(int position);
