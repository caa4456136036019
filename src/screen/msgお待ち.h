#pragma once

#include <chrono>

#include "screen/Form.h"

class Label;

/// The modeless notice that a long job is running. It takes no input and has no close box.
class msgお待ち : public Form {
  public:
    msgお待ち();

    /// Below the sentence: what is done of how many, once the job takes long. Empty at first.
    void ShowProgress(const QString& work, int done, int count);

  private:
    std::chrono::milliseconds shown_;
    std::chrono::milliseconds painted_{0};
    Label* progress_;
};

/// To the top of the windows, size and place unchanged.
void SetWindowTop(QWidget& window);

/// Makes the dialog, shows it and lets events through once, so that it paints.
void ShowWaitDialog();
/// For the loops of an output, at every row: "`work` 120 / 3,456 件" in the dialog, from half a second after it came up
/// and then ten times a second. Painted at once and by itself: no event is let through. Nothing without the dialog.
void PaintProgress(const QString& work, int done, int count);
/// Takes it away; the next use makes it anew.
void UnloadWaitDialog();
