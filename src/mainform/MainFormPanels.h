#pragma once

#include <QStringList>

class Form;

// The looks of the main form, one function for each of its areas, apart from its handlers. All places are pixels
// here; the controls themselves tell them in twips.

/// Title, manual, and the panels behind.
void BuildTitlePanel(Form& form);
/// Ranges, search texts, class items, their selection buttons, search and clear.
void BuildHeadPanel(Form& form);
/// Left panels, tab pages, titles, the eight row positions and the scroll bar.
void BuildListPanel(Form& form);
/// Output buttons, the end button and the notice.
void BuildOutputPanel(Form& form);

/// Numbers the tab stops: texts, classes, ranges, order, the head's buttons, ヘッド終了, then the tabs and outputs.
void SetTabOrder(Form& form);

/// The nine buttons that open a selection window.
const QStringList& SelectionButtons();
