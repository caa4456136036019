#pragma once

#include <QSize>
#include <QString>
#include <optional>

namespace platform {

struct SystemVersion {
    int major = 0;
    int minor = 0;
};

/// Properties of the machine and of this process.
class SystemInformation {
  public:
    virtual ~SystemInformation() = default;

    /// Writes the name of the real user id and a NUL over the beginning of the buffer; its length is unchanged. If
    /// there is no name or it does not fit, the buffer is unchanged.
    virtual void ReadUserName(QString& buffer) const = 0;
    /// The same for the host name.
    virtual void ReadComputerName(QString& buffer) const = 0;
    /// Primary screen, in device-independent pixels.
    virtual QSize ScreenSize() const = 0;
    /// Version of the operating system for the computation of window margins; nullopt if not applicable.
    virtual std::optional<SystemVersion> OsVersion() const = 0;
    /// Absolute folder of the program file as it was started: symbolic links are not resolved, no trailing separator.
    virtual QString ApplicationFolder() const = 0;
    /// The arguments joined by single blanks; blanks within an argument are kept, nothing is trimmed.
    virtual QString CommandLine() const = 0;
};

/// Create it from main's arguments before QApplication, which removes some of them.
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
