#pragma once

#include "screen/Form.h"

/// The modeless notice that a long job is running. It takes no input and has no close box.
class msgお待ち : public Form {
  public:
    msgお待ち();
};

/// To the top of the windows, size and place unchanged.
void SetWindowTop(QWidget& window);

/// Makes the dialog, shows it and lets events through once, so that it paints.
void ShowWaitDialog();
/// Takes it away; the next use makes it anew.
void UnloadWaitDialog();
