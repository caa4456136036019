#pragma once

#include <QString>

/// Fields of the command line: three UTF-16 units of office, then up to five of staff code, without a separator. A code
/// has no trailing blanks, which a command line loses; leading blanks are part of it.
struct RegistrationCommand {
    static constexpr int kLength = 8;  ///< of the key of the start message, blanks included; for InitializeData
    QString office;
    QString staff;
};
/// A field after the end of the command line is empty.
RegistrationCommand ParseRegistrationCommand(const QString& commandLine);

/// Starts the program and shows the form with the person. If that fails, shows the reason and exits the process. An
/// error that is thrown is for the caller to show; then there may be no window.
void StartRegistration();
