#pragma once

#include <QString>

#include <array>

#include "globals/InquiryRecords.h"
#include "screen/InputItem.h"

class Form;

inline constexpr int kValueRows = 10;

/// A window of search values that replaces one search text of the head. The five windows differ in these values only.
struct ValueWindowDefinition {
    QString window;    ///< name of the form
    QString item;      ///< name of the ten rows, also what a value is called in texts
    QString button;    ///< on the main form, opens the window
    QString nextItem;  ///< on the main form: the search text that the values replace
    bool ConditionFlags::*flag;
    ImeMode ime;
    CharacterClasses classes;
    int itemWidth;  ///< pixels, wide enough for MaxLength characters

    /// Caption and title.
    QString Title() const { return item + QStringLiteral("複数指定"); }
};

/// In the order of the buttons.
const std::array<ValueWindowDefinition, 5>& ValueWindowDefinitions();

/// Creates the controls of a value window in tab order, sets the window's caption, flags and fixed size.
void BuildValueWindow(Form& form, const ValueWindowDefinition& definition);
