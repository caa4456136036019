#pragma once

class Form;

/// Puts the controls of the PIN dialog onto it, in tab order.
void BuildPinDialog(Form& form);
