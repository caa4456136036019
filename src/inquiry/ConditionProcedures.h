#pragma once

#include <QString>

#include "inquiry/SearchConditions.h"

// The head's conditions: defaults and rules for storing an item's value in Globals().Conditions.

/// Defaults at start: ranges from the lowest to the highest code, texts empty, 在籍区分 0, 社員区分 9, 表示順区分 1.
void SetInitialConditions();
/// Defaults after a clear: the same, but 社員区分 has the MaxValue of its item on the main form. The office of a start
/// command is kept.
void ResetConditions();
void ResetConditionFlags();
/// First step of a clear: resets flags, conditions and row store, unloads the selection windows.
void CloseConditionWindows();

/// 1 to 4 for the first empty end of department, section, position, staff; 0 if none is empty. Starts are not checked.
int CheckRangeEnds();

/// Stores a bound that the caller has formatted by the range's mask. Returns 1 if it is unchanged, -1 if it was stored,
/// 0 if it was stored and the other bound was set to it because the bounds would have crossed.
int AcceptRangeStart(Range range, const QString& value);
int AcceptRangeEnd(Range range, const QString& value);
/// Stores an item's text; with TextCondition::cut it is first cut to as many bytes of code page 932 as the item's
/// MaxLength on the main form. False if `text` equals the stored text; otherwise the item must be painted again.
bool AcceptSearchText(const TextCondition& condition, const QString& text);
/// Stores the number of a class. True if it changed.
bool AcceptKind(const KindCondition& condition, int value);

/// Shows in お知らせ of the main form by how many characters a text exceeds `maxBytes` (code page 932); empty if it
/// fits.
void CheckInputLength(const QString& text, int maxBytes);
