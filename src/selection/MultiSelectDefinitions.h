#pragma once

#include <QString>

#include <array>

#include "globals/InquiryConditions.h"

/// What tells the windows apart in which rows of a master are picked one by one, beside what tells list windows apart.
struct PickDefinition {
    QString window;    ///< name of the form
    QString button;    ///< of the main form, opens the window
    QString nextItem;  ///< of the main form: the start of the range that the picked rows replace
    bool ConditionFlags::*flag;
    QString table;      ///< the master that names the picked codes
    QString nameField;  ///< of that master
    QString prefix;     ///< of the selection in words
    /// Has btn_全て選択, and goes without marks: the next opening starts anew. The others keep list and status.
    bool forStaff = false;
};

/// In the order of the buttons.
const std::array<PickDefinition, 4>& PickDefinitions();
