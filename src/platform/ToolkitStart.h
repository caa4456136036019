#pragma once

/// To be created before the Qt application object and destroyed after its construction. Without it Qt would parse the
/// program's arguments, and abort with a core dump if there is no display or no plugin for it.
class ToolkitStart {
  public:
    /// Buffers Qt's messages until the object is destroyed. If Qt fails fatally, prints a Japanese sentence with the
    /// program's name on standard error, followed by Qt's messages unless a missing display is the cause, and exits
    /// with status 1. `program`: argv[0].
    explicit ToolkitStart(const char* program);
    /// Prints the buffered messages.
    ~ToolkitStart();
    ToolkitStart(const ToolkitStart&) = delete;
    ToolkitStart& operator=(const ToolkitStart&) = delete;

    /// The argument count for the application object: 1, the program's name only (0 if argc is 0), since all other
    /// arguments are a start command or a file name and must not be parsed as Qt options. Returns a static variable,
    /// since Qt keeps the reference.
    static int& ArgumentCount(int argc);
};

/// To be called first in main(). If "--version" is the only argument, prints `program` (UTF-8) and the version on
/// standard output and returns true; the program then ends. Needs no display.
bool PrintVersion(int argc, char** argv, const char* program);
