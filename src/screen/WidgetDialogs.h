#pragma once

#include "platform/Dialogs.h"

/// Message boxes and the save dialog as windows over the active one, modal for the whole program.
class WidgetDialogs : public platform::Dialogs {
  public:
    using Dialogs::Confirm;
    using Dialogs::ShowMessage;
    void ShowMessage(const QString& text, const QString& title) override;
    bool Confirm(const QString& text, const QString& title) override;
    std::optional<QString> ShowSave(const platform::SaveQuestion& question) override;
};
