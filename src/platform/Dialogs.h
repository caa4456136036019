#pragma once

#include <QString>
#include <optional>

namespace platform {

/// Initial state of a save dialog.
struct SaveQuestion {
    QString Filter;       ///< description and pattern of each file type alternately, separated by "|"
    int FilterIndex = 1;  ///< file type selected initially, counted from 1
    QString FileName;     ///< proposed file name, with its folder
};

/// Message boxes and file dialogs. All other code goes through this interface, so that tests can queue the answers.
class Dialogs {
  public:
    virtual ~Dialogs() = default;

    /// Modal box with an OK button; returns when it is closed. With an empty title the box has no caption.
    virtual void ShowMessage(const QString& text, const QString& title) = 0;
    /// Modal box with はい and いいえ. True for はい.
    virtual bool Confirm(const QString& text, const QString& title) = 0;
    /// Modal save dialog; nullopt on cancel. The path is returned as typed: no suffix is appended, and no confirmation
    /// is asked for an existing file. A proposed name without a folder is resolved in the user's documents folder. The
    /// dialog may change the working directory.
    virtual std::optional<QString> ShowSave(const SaveQuestion& question) = 0;

    // The same with defaultTitle.
    void ShowMessage(const QString& text) { ShowMessage(text, defaultTitle); }
    bool Confirm(const QString& text) { return Confirm(text, defaultTitle); }

    QString defaultTitle;
};

}  // namespace platform
