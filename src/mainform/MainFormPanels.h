#pragma once

class Form;

// Layout of the main form, one function per area, separate from its handlers. All positions are pixels; Control reports
// them in twips.

/// Title and manual button.
void BuildTitlePanel(Form& form);
/// Ranges, search texts and classes with their selection buttons; search and clear.
void BuildHeadPanel(Form& form);
/// Left panels, tab pages, titles, the eight row positions and the scroll bar.
void BuildListPanel(Form& form);
/// Output buttons, the end button and the notice.
void BuildOutputPanel(Form& form);

/// Sets the tab order: texts, classes, ranges, order, the head's buttons, ヘッド終了, then tab and outputs.
void SetTabOrder(Form& form);
