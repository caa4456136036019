#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

/// A printing system of the test's own, with queues that write what arrives into files. While it lives, this process
/// and all that it starts print there.
class PrintService {
  public:
    PrintService();
    ~PrintService();
    PrintService(const PrintService&) = delete;
    PrintService& operator=(const PrintService&) = delete;

    /// A printer of the generic PDF description: it knows A4 but no postcards and no paper of free size.
    void AddPrinter(const QString& name);
    /// A printer that takes A4, postcards and envelopes of 長形3号.
    void AddMailPrinter(const QString& name);
    void MakeDefault(const QString& name);
    /// From now on the printer refuses all jobs.
    void Reject(const QString& name);

    /// What has arrived at the printer as a whole PDF; waits for it, empty when none comes.
    QByteArray Arrived(const QString& name) const;
    /// The same in a file of the test's.
    QString ArrivedFile(const QString& name) const;
    /// Takes away what has arrived there.
    void Clear(const QString& name) const;
    /// True when nothing has arrived there.
    bool Idle(const QString& name) const;

  private:
    void Add(const QString& name, const QString& description);
    QString OutputOf(const QString& name) const { return folder_.filePath(name + QStringLiteral(".pdf")); }

    QTemporaryDir folder_;
    QProcess scheduler_;
    QByteArray environmentBefore_;
};
