#pragma once

class QCoreApplication;

/// Japanese number and date forms, and Qt's own dialogs in Japanese, whatever the user's environment says.
void InstallTranslator(QCoreApplication& application);
