#pragma once

/// Guards the construction of the Qt application object. Qt parses arguments and aborts if there is no display or
/// no plugin for it.
class ToolkitStart {
  public:
    /// Holds back Qt's messages until the object is destroyed. If Qt fails fatally, prints a sentence with the
    /// program's name on standard error, followed by Qt's messages unless a missing display is the cause, and exits
    /// with status 1.
    explicit ToolkitStart(const char* program);
    /// Prints the messages held back.
    ~ToolkitStart();
    ToolkitStart(const ToolkitStart&) = delete;
    ToolkitStart& operator=(const ToolkitStart&) = delete;

    /// The argument count for Qt: the program's name only, since all other arguments are a start command or a file name
    /// and must not be parsed as Qt options. Static, since Qt keeps the reference.
    static int& ArgumentCount(int argc);
};
