#pragma once

/// The start of the window toolkit, which reads arguments on its own and aborts where it finds no display. Wraps the
/// making of the application object.
class ToolkitStart {
  public:
    /// Until the object ends, messages of the toolkit are kept back. Where it gives up, one sentence under the name of
    /// the program is all that is printed on standard error, and the process ends with status 1.
    explicit ToolkitStart(const char* program);
    /// Prints the messages that were kept back.
    ~ToolkitStart();
    ToolkitStart(const ToolkitStart&) = delete;
    ToolkitStart& operator=(const ToolkitStart&) = delete;

    /// The number of arguments to hand to the toolkit: the program's name alone, since everything else is the text of
    /// a start command or a file's name. Lives as long as the process, as the toolkit demands.
    static int& ArgumentCount(int argc);
};
