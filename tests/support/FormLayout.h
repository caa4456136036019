#pragma once

#include <QString>

class Form;

/// What a form looks like, as text: a line for the window, then one for each control in the order of names with place,
/// size and font in pixels, colours, state, tab index and texts, and the columns of each list.
QString LayoutOf(const Form& form);

/// Compares the layout with the file tests/FOLDER/layouts/NAME.txt, where NAME is the name of the form
/// (ExpectedText.h).
void ExpectLayout(const Form& form, const QString& folder);
