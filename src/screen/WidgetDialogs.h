#pragma once

#include "platform/Services.h"

/// Application-modal message boxes and save dialog over the active window.
class WidgetDialogs : public platform::Dialogs {
  public:
    using Dialogs::Confirm;
    using Dialogs::ShowMessage;
    void ShowMessage(const QString& text, const QString& title) override;
    bool Confirm(const QString& text, const QString& title) override;
    std::optional<QString> ShowSave(const platform::SaveQuestion& question) override;
};
