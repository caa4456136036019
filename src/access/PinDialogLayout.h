#pragma once

class Form;

/// Creates the controls of the PIN dialog in tab order.
void BuildPinDialog(Form& form);
