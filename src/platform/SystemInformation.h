#pragma once

#include <QSize>
#include <QString>
#include <optional>

namespace platform {

/// Version of an operating system.
struct SystemVersion {
    int major = 0;
    int minor = 0;
};

/// Properties of the machine and of this process.
class SystemInformation {
  public:
    virtual ~SystemInformation() = default;

    /// Writes the login name of the real user id and a NUL over the beginning of the buffer, whose length stays the
    /// same. If there is no name or it does not fit, the buffer is unchanged.
    virtual void ReadUserName(QString& buffer) const = 0;
    /// The same for the host name.
    virtual void ReadComputerName(QString& buffer) const = 0;
    /// Size of the primary screen in device-independent pixels; empty in a program without windows.
    virtual QSize ScreenSize() const = 0;
    /// Version of the operating system, from which the main form computes its margins; nullopt if the margins do not
    /// depend on it.
    virtual std::optional<SystemVersion> OsVersion() const = 0;
    /// Absolute folder of the program file as it was started: symbolic links are not resolved, no trailing separator.
    virtual QString ApplicationFolder() const = 0;
    /// The arguments after the program's name, joined by single blanks; blanks within an argument are kept, nothing is
    /// trimmed.
    virtual QString CommandLine() const = 0;
};

/// Takes main's arguments. Must be created before the application object, which removes some of them.
class LocalSystemInformation : public SystemInformation {
  public:
    LocalSystemInformation(int argc, char** argv);

    void ReadUserName(QString& buffer) const override;
    void ReadComputerName(QString& buffer) const override;
    QSize ScreenSize() const override { return {}; }
    std::optional<SystemVersion> OsVersion() const override { return std::nullopt; }
    QString ApplicationFolder() const override { return applicationFolder_; }
    QString CommandLine() const override { return commandLine_; }

  private:
    QString applicationFolder_;
    QString commandLine_;
};

}  // namespace platform
