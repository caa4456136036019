#pragma once

class Form;

/// Creates the controls of the registration form in tab order: for each of kStaffItems its title and item, with the
/// list of names next to a code and a label named column + 年号 next to a date; then the notice and the buttons.
void BuildRegistrationForm(Form& form);
