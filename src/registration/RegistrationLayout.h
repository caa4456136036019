#pragma once

class Form;

/// Puts the controls of the registration form onto it, in tab order: for each of kStaffItems its title and the item,
/// with the list of names beside a code and a label named column + 年号 beside a date, then the notice and the buttons.
void BuildRegistrationForm(Form& form);
