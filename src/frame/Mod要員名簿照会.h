#pragma once

/// Starts the program and shows the main form. Does not return if the start fails: shows the reason and exits the
/// process.
void Main();
