#pragma once

#include <QApplication>

/// The application object of a program with forms: Japanese throughout, in the suite's look, and going on without a
/// window, as every program of the suite ends by a step of its own.
class SuiteApplication : public QApplication {
  public:
    /// Keeps the whole command line in Services().system first: Qt takes those arguments away that it knows.
    SuiteApplication(int& argc, char** argv);
};
