#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

/// A private CUPS scheduler whose queues write jobs to files. While it exists, this process and its children print
/// there.
class PrintService {
  public:
    PrintService();
    ~PrintService();
    PrintService(const PrintService&) = delete;
    PrintService& operator=(const PrintService&) = delete;

    /// A printer with the generic PDF driver: A4, but no postcards and no custom sizes.
    void AddPrinter(const QString& name);
    /// A printer for A4, postcards and 長形3号 envelopes.
    void AddMailPrinter(const QString& name);
    void MakeDefault(const QString& name);
    /// Makes the printer reject all jobs.
    void Reject(const QString& name);

    /// The complete PDF that the printer has received; waits for it, empty after a timeout.
    QByteArray Arrived(const QString& name) const;
    /// The same as the path of a file.
    QString ArrivedFile(const QString& name) const;
    /// Deletes the received jobs.
    void Clear(const QString& name) const;
    /// True if no job has been received.
    bool Idle(const QString& name) const;

  private:
    void Add(const QString& name, const QString& description);
    QString OutputOf(const QString& name) const { return folder_.filePath(name + QStringLiteral(".pdf")); }

    QTemporaryDir folder_;
    QProcess scheduler_;
    QByteArray environmentBefore_;
};
