#pragma once

#include <QString>

// Texts of the status line of the main form. They do nothing on a form without one.

/// "242 件　印 240 件", or that no one matches. For the end of everything that changes the rows or their check marks.
void ShowRowCounts();
/// Empties the line, since the list was cleared without a search.
void ClearStatus();
/// What an output of the checked rows has done: their number and `done`, such as "名を印刷しました。".
void ShowOutputDone(const QString& done);

/// Scope guard around the wait for another program: its name in the status line, and the wait cursor. Afterwards the
/// line shows the counts again.
class AwaitedProgram {
  public:
    explicit AwaitedProgram(const QString& program);
    ~AwaitedProgram();
    AwaitedProgram(const AwaitedProgram&) = delete;
    AwaitedProgram& operator=(const AwaitedProgram&) = delete;
};
