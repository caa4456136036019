#pragma once

/// Lets every list of entries that has an accessible name, and is not typed into, keep that name for assistive tools.
/// Qt gives the entry shown as the name, so that nobody learns what is being chosen, and a list without an entry has no
/// name at all. Here the entry is value and description. Once for the process; later calls do nothing.
void InstallComboAccess();
