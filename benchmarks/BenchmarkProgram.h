#pragma once

#include <QApplication>
#include <QCommandLineParser>

/// Common main-program part of paired benchmarks: an application, offscreen unless QT_QPA_PLATFORM is set, and the
/// number of pairs from the command line.
class BenchmarkProgram {
  public:
    /// `pairs` is the default number of pairs; `further` are additional options.
    BenchmarkProgram(int& argc, char** argv, int pairs, const QList<QCommandLineOption>& further = {})
        : application_(WithoutDisplay(argc), argv) {
        const QCommandLineOption count(QStringLiteral("pairs"), QStringLiteral("Number of pairs."), QStringLiteral("N"),
                                       QString::number(pairs));
        arguments_.addOption(count);
        arguments_.addOptions(further);
        arguments_.addHelpOption();
        arguments_.process(application_);
        pairs_ = arguments_.value(count).toInt();
    }

    int Pairs() const { return pairs_; }
    const QCommandLineParser& Arguments() const { return arguments_; }

  private:
    static int& WithoutDisplay(int& argc) {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        return argc;
    }

    QApplication application_;
    QCommandLineParser arguments_;
    int pairs_ = 0;
};
