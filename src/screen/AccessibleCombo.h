#pragma once

/// Lets every list of entries that is not typed into keep its accessible name for assistive tools, also one given
/// later. Qt gives the entry shown as the name, so that nobody learns what is being chosen, and a list without an entry
/// has no name at all. Here the entry is value and description; it is the name only where there is no other. Once for
/// the process; later calls do nothing.
void InstallComboAccess();
