#pragma once

class Form;
class QWidget;

// The notice that an item has not taken all characters of an input.

/// Shows "入力できない文字を除きました。" in お知らせ of the form; a form without one shows it below the item, until
/// the item loses the focus. `kept`: a text that お知らせ shows is not replaced.
void ShowInputNotice(Form& form, const QWidget& item, bool kept);

/// Removes the notice of ShowInputNotice; other texts of お知らせ stay.
void ClearInputNotice(Form& form);

/// Removes the notice below an item.
void HideInputNoticeBelow(Form& form);
