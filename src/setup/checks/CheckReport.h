#pragma once

#include <QSet>
#include <QString>
#include <QStringList>
#include <QTextStream>

namespace setup {

/// A fault of an installation, and what an administrator needs to know about it.
struct Finding {
    QString what{};         ///< sentence: what is wrong and where
    QStringList entries{};  ///< the entries concerned, if there are several
    QString effect{};       ///< sentence: what a clerk notices
    QString remedy{};       ///< sentence: what to do
    /// Command lines that do it, to be pasted into a shell in this order. Without a remedy they are introduced by a
    /// standard sentence.
    QStringList commands{};
};

/// Prints each finding once, as it is found, and counts the findings.
class CheckReport {
  public:
    explicit CheckReport(QTextStream& out) : out_(out) {}
    void Add(const Finding& finding);
    int Count() const { return static_cast<int>(seen_.size()); }

  private:
    QTextStream& out_;
    QSet<QString> seen_;
};

/// A word for a shell command: in single quotes.
QString ShellWord(const QString& word);
/// Command line of this tool for an installation; `rest`: further arguments, quoted where necessary.
QString ToolCommand(const QString& verb, const QString& root, const QString& rest = {});

}  // namespace setup
