#pragma once

#include <QString>
#include <optional>

namespace platform {

/// What a dialog that asks for the name of a file to be written begins with.
struct SaveQuestion {
    QString Filter;       ///< description and pattern of each kind in turn, apart by "|"
    int FilterIndex = 1;  ///< the kind that comes up, counted from 1
    QString FileName;     ///< the name proposed, with its folder
};

/// Message boxes and file dialogs. No other code puts one up, so that a test can queue the answers.
class Dialogs {
  public:
    virtual ~Dialogs() = default;

    /// A box with OK alone. Returns when it is closed. An empty title is a box without one.
    virtual void ShowMessage(const QString& text, const QString& title) = 0;
    /// A box with はい and いいえ. True for はい.
    virtual bool Confirm(const QString& text, const QString& title) = 0;
    /// Asks for a file to be written; nothing on cancel. The name comes back as the user gave it: nothing is appended
    /// to it, and an existing file is not asked about. A proposed name without a folder stands among the user's own
    /// files. Where the working folder stands afterwards is open.
    virtual std::optional<QString> ShowSave(const SaveQuestion& question) = 0;

    // The same under the program's own title.
    void ShowMessage(const QString& text) { ShowMessage(text, defaultTitle); }
    bool Confirm(const QString& text) { return Confirm(text, defaultTitle); }

    QString defaultTitle;
};

}  // namespace platform
