#pragma once

// The input method of the user's session, for Japanese text.

/// To be called before the application object is created. If the environment variable QT_IM_MODULE is not set, sets it
/// to the input method that XMODIFIERS names ("@im=fcitx"), if Qt may have a plugin for that: Qt does not read
/// XMODIFIERS, and some desktops set nothing else. Programs that are started later inherit it.
void ChooseInputMethod();

/// Commits an unfinished composition into the widget that has the focus; to be called before the focus moves. Not every
/// input method does that itself when the next widget does not use it; it would commit the text into the one after.
void CommitComposition();
