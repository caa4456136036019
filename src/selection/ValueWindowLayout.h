#pragma once

#include "inquiry/SearchConditions.h"

class Form;

inline constexpr int kValueRows = 10;

/// Creates the controls of a value window in tab order, sets the window's caption, flags and fixed size.
void BuildValueWindow(Form& form, const TextCondition& condition);
