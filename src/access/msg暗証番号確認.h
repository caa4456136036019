#pragma once

#include <QString>

#include "screen/Form.h"

/// Asks for staff code and PIN. The caller sets the caption; the result is in Globals() when the dialog has been
/// closed. Create with new, once per question; the form unloads itself.
class msg暗証番号確認 : public Form {
  public:
    msg暗証番号確認();
    ~msg暗証番号確認() override;

    /// Shows code and name of an enrolled staff member of the office in scope or of the whole company and stores rights
    /// and PIN. `found` is true if there is one. If not, or after a failed read, items and rights are unchanged and
    /// there is no PIN: only the office's privileged PIN is then accepted.
    void LookUpStaffByCode(const QString& code, bool& found);
    /// The same by login name, case-insensitive.
    void LookUpStaffByLogin(const QString& name, bool& found);
    /// Compares the entry, in upper case, with the office's privileged PIN and with the PIN of the staff member. A
    /// match signs in and unloads the form. Otherwise, and for an entry of less than four characters, shows a message;
    /// then no staff member is signed in.
    void ConfirmPinEntry();

  private:
    void OnLoad();
    void ConnectItems();
    bool Matches(const QString& entry) const;
    void Refuse(const QString& message);
    void SignIn();

    QString clearPin_;  ///< of the staff member shown; wiped by the destructor
};

/// Creates the controls of the PIN dialog in tab order and fixes its size (PinDialogLayout.cpp).
void BuildPinDialog(Form& form);
