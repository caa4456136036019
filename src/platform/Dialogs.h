#pragma once

#include <QString>

namespace platform {

/// Message boxes. No other code puts one up, so that a test can queue the answers.
class Dialogs {
  public:
    virtual ~Dialogs() = default;

    /// A box with OK alone. Returns when it is closed. An empty title is a box without one.
    virtual void ShowMessage(const QString& text, const QString& title) = 0;
    /// A box with はい and いいえ. True for はい.
    virtual bool Confirm(const QString& text, const QString& title) = 0;

    // The same under the program's own title.
    void ShowMessage(const QString& text) { ShowMessage(text, defaultTitle); }
    bool Confirm(const QString& text) { return Confirm(text, defaultTitle); }

    QString defaultTitle;
};

class WidgetDialogs : public Dialogs {
  public:
    using Dialogs::Confirm;
    using Dialogs::ShowMessage;
    void ShowMessage(const QString& text, const QString& title) override;
    bool Confirm(const QString& text, const QString& title) override;
};

}  // namespace platform
