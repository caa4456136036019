#pragma once

#include <QString>

class QHelpEvent;
class QWidget;

/// Plain text as the text of a tooltip: shown literally, a long line with line breaks.
QString ToolTipMarkup(const QString& plain);

/// Shows the text as the tooltip of the widget at the place of the event; hides the tooltip if the text is empty.
void ShowToolTip(const QHelpEvent& event, QWidget& widget, const QString& plain);
