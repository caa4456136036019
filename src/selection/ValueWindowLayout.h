#pragma once

class Form;
struct ValueWindowDefinition;

inline constexpr int kValueRows = 10;

/// Puts the controls of a window of search values onto it, in tab order.
void BuildValueWindow(Form& form, const ValueWindowDefinition& definition);
