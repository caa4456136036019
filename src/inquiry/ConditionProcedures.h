#pragma once

#include <QString>

#include <array>

#include "globals/InquiryConditions.h"

// The head's conditions: their defaults and the rules by which an item's value goes into the record.

enum class Range { Department, Section, Position, Staff };

/// One code range of the head: where its bounds stand, by which mask, under which items.
struct RangeDefinition {
    Range range;
    QString InquiryConditions::*from;
    QString InquiryConditions::*to;
    QString mask;
    QString fromItem, toItem;
};
const std::array<RangeDefinition, 4>& RangeDefinitions();
const RangeDefinition& DefinitionOf(Range range);

/// One search text of the head. `cut`: stored within MaxLength bytes; the others are stored as typed.
struct SearchTextDefinition {
    QString item;
    QString InquiryConditions::*field;
    bool cut;
};
const std::array<SearchTextDefinition, 5>& SearchTextDefinitions();

/// One class item with its list.
struct KindDefinition {
    QString item, listItem;
    int InquiryConditions::*field;
};
const std::array<KindDefinition, 3>& KindDefinitions();

/// Defaults of a start: all ranges open, texts empty, 在籍区分 0, 社員区分 9, 表示順区分 1.
void SetInitialConditions();
/// Defaults of a clear: the same, but 社員区分 takes its MaxValue. The office of a start command stays.
void ResetConditions();
/// Clears all condition flags.
void ResetConditionFlags();
/// First step of a clear: flags off, selection windows unloaded, conditions and row store reset.
void CloseConditionWindows();

/// 1 to 4 for the first empty end of department, section, position, staff; 0 when none is empty. Starts are not
/// tested.
int CheckRangeEnds();

/// 1: the bound had this value already; -1: stored, range in order; 0: stored, and the other bound was moved
/// along, since the bound just typed wins.
int AcceptRangeStart(Range range, const QString& value);
int AcceptRangeEnd(Range range, const QString& value);
/// True when the field changed. The item's MaxLength is read from the main form.
bool AcceptSearchText(const SearchTextDefinition& definition, const QString& text);
bool AcceptKind(const KindDefinition& definition, int value);

/// Notice in お知らせ of the main form while a text is typed: how many characters are too many, or nothing.
void CheckInputLength(const QString& text, int maxBytes);
