#pragma once

#include <chrono>

#include "screen/Form.h"

class Label;

/// Wait dialog: modeless notice that a long job is running. It takes no input and has no close box.
class msgお待ち : public Form {
  public:
    msgお待ち();

    /// Shows "`job` done / count 件" below the message and repaints it without processing events; not in the dialog's
    /// first 0.5 s, and then at most every 0.1 s.
    void ShowProgress(const QString& job, int done, int count);

  private:
    std::chrono::milliseconds shown_;
    std::chrono::milliseconds painted_{0};
    Label* progress_;
};

/// Raises the window to the top, size and position unchanged.
void SetWindowTop(QWidget& window);

/// Shows the dialog, created if necessary, and processes events until it is painted (timeout 300 ms).
void ShowWaitDialog();
/// ShowProgress of the dialog, for each row of an output. Does nothing if there is no dialog.
void PaintProgress(const QString& job, int done, int count);
/// Closes and deletes the dialog.
void UnloadWaitDialog();
