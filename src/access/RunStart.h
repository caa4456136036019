#pragma once

/// First history row of a run: reads who launches it, then writes 開始 with the command line, whose quotes are
/// doubled once, so that the stored text equals it. Whatever fails is swallowed.
void RecordRunStart();
