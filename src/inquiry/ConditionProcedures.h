#pragma once

#include <QString>

#include "inquiry/SearchConditions.h"

// The head's conditions: defaults and rules for storing an item's value in Globals().Conditions.

/// Defaults at start: ranges open, texts empty, 在籍区分 0, 社員区分 9, 表示順区分 1.
void SetInitialConditions();
/// Defaults after a clear: the same, but 社員区分 has its MaxValue. The office of a start command is kept.
void ResetConditions();
/// Clears all condition flags.
void ResetConditionFlags();
/// First step of a clear: resets flags, conditions and row store, unloads the selection windows.
void CloseConditionWindows();

/// 1 to 4 for the first empty end of department, section, position, staff; 0 if none is empty. Starts are not checked.
int CheckRangeEnds();

/// Stores a code formatted by the mask. 1: unchanged; -1: stored; 0: stored, and the other bound was set to it because
/// the bounds would have crossed.
int AcceptRangeStart(Range range, const QString& value);
int AcceptRangeEnd(Range range, const QString& value);
/// True if the field changed. Reads the item's MaxLength from the main form.
bool AcceptSearchText(const TextCondition& condition, const QString& text);
bool AcceptKind(const KindCondition& condition, int value);

/// Shows in お知らせ of the main form by how many characters a text exceeds `maxBytes` (code page 932); empty if it
/// fits.
void CheckInputLength(const QString& text, int maxBytes);
