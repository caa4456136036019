#pragma once

#include <QApplication>
#include <QCommandLineParser>

/// What a benchmark of pairs is before its work: an application, without a display unless one is asked for, and the
/// number of pairs that its caller wants.
class BenchmarkProgram {
  public:
    /// `pairs` are run where the caller says nothing; `further` are the benchmark's own options.
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
