#pragma once

#include <QString>

/// Who is to be registered, from the command line: three characters of office and up to five of staff code, whose
/// blanks at the end a command line loses; a blank in front is part of the code.
struct RegistrationCommand {
    static constexpr int kLength = 8;
    QString office;
    QString staff;
};
RegistrationCommand ParseRegistrationCommand(const QString& commandLine);

/// The program's start, up to the shown form. Where it fails it shows why and ends the process.
void StartRegistration();

/// Answers whoever started this program, ends the run in its tables and leaves the process at once. Safe at any
/// moment, also before the start is through.
void LeaveRegistration();
