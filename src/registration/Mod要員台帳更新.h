#pragma once

#include <QString>

/// Fields of the command line: three characters of office and up to five of staff code. Trailing blanks of the code are
/// lost on a command line; leading blanks are part of it.
struct RegistrationCommand {
    static constexpr int kLength = 8;
    QString office;
    QString staff;
};
RegistrationCommand ParseRegistrationCommand(const QString& commandLine);

/// Starts the program and shows the form. If that fails, shows the reason and exits the process.
void StartRegistration();
