#pragma once

#include <QSize>
#include <QString>
#include <optional>

namespace platform {

struct SystemVersion {
    int major = 0;
    int minor = 0;
};

/// What the machine says of itself and of this run.
class SystemInformation {
  public:
    virtual ~SystemInformation() = default;

    /// Writes the name of the real user id, closed by a NUL, over the beginning of the buffer, which keeps its
    /// length. A name that does not fit, or none, leaves the buffer as it is.
    virtual void ReadUserName(QString& buffer) const = 0;
    /// The same for the computer's name.
    virtual void ReadComputerName(QString& buffer) const = 0;
    /// Device-independent pixels of the primary screen.
    virtual QSize ScreenSize() const = 0;
    /// Version of the operating system by the numbers that the window margins go by; none where it has none.
    virtual std::optional<SystemVersion> OsVersion() const = 0;
    /// Folder of the program file as it was started, absolute, symbolic links not followed, no closing separator.
    virtual QString ApplicationFolder() const = 0;
    /// The arguments joined by single blanks, inner blanks of an argument kept, nothing trimmed.
    virtual QString CommandLine() const = 0;
};

/// The real machine. Made from main's arguments before QApplication, which takes some of them away.
class LocalSystemInformation : public SystemInformation {
  public:
    LocalSystemInformation(int argc, char** argv);

    void ReadUserName(QString& buffer) const override;
    void ReadComputerName(QString& buffer) const override;
    QSize ScreenSize() const override { return {}; }  ///< known only to a program with windows
    std::optional<SystemVersion> OsVersion() const override { return std::nullopt; }
    QString ApplicationFolder() const override { return applicationFolder_; }
    QString CommandLine() const override { return commandLine_; }

  private:
    QString applicationFolder_;
    QString commandLine_;
};

}  // namespace platform
