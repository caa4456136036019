#pragma once

#include <QString>

#include "screen/Form.h"

/// Asks who is there and for that person's PIN. The caption is the caller's to set; who signed in stands in Globals()
/// when the dialog is gone. A form of its own making for each question: made with new, it unloads itself.
class msg暗証番号確認 : public Form {
  public:
    msg暗証番号確認();
    ~msg暗証番号確認() override;

    /// Fills code and name and takes over rights and PIN of a staff member who works here, for the office in scope or
    /// the company as a whole. `found` is True when there is one. Otherwise, also after a failed read, items and rights
    /// stay as they were, and the dialog has no PIN: only the office's privileged one still opens it.
    void LookUpStaffByCode(const QString& code, bool& found);
    /// The same by the name of a login, in whatever letter case.
    void LookUpStaffByLogin(const QString& name, bool& found);
    /// Compares what was typed, in capitals, with the office's privileged PIN and with that of the person looked up.
    /// Unloads the form when it matches, and shows a message otherwise.
    void ConfirmPinEntry();

  private:
    void OnLoad();
    void WireItems();
    bool Matches(const QString& entry) const;
    void Refuse(const QString& message);
    void SignIn();

    QString clearPin_;  ///< of the person looked up; wiped when the dialog goes
};
