#pragma once

#include <QString>

#include <array>

#include "globals/InquiryConditions.h"
#include "screen/ItemDesign.h"

/// In what one window of search values differs from the other four.
struct ValueWindowDefinition {
    QString window;    ///< name of the form
    QString item;      ///< name of the ten rows, and what a value is in the texts
    QString button;    ///< of the main form, opens the window
    QString nextItem;  ///< of the main form: the single text that the values replace
    bool ConditionFlags::*flag;
    ImeMode ime;
    CharacterClasses classes;
    int itemWidth;  ///< pixels: room for as many signs as can be typed

    /// Caption and title.
    QString Title() const { return item + QStringLiteral("複数指定"); }
};

/// In the order of the buttons.
const std::array<ValueWindowDefinition, 5>& ValueWindowDefinitions();
