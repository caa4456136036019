#pragma once

/// Makes every ComboItem bear its own name for assistive tools. Qt gives the entry shown as the name, so that nobody
/// learns what is being chosen, and a list without an entry has no name at all. Once for the process; later calls do
/// nothing.
void InstallComboAccess();
