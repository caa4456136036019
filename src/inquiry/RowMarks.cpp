#include "inquiry/RowMarks.h"

#include "globals/ProgramGlobals.h"

namespace {

void SetMark(int row, bool marked) {
    Globals().Rows.出力対象[static_cast<size_t>(row)] = static_cast<qint16>(marked ? 1 : 0);
}

}  // namespace

bool IsMarked(int row) { return Globals().Rows.出力対象[static_cast<size_t>(row)] == 1; }

int MarkedRowCount() {
    int count = 0;
    for (int row = 0; row <= Globals().LastRow; ++row) count += IsMarked(row) ? 1 : 0;
    return count;
}

void MarkRowsFrom(int first, bool marked) {
    for (int row = first; row <= Globals().LastRow; ++row) SetMark(row, marked);
}

void InvertMarks() {
    for (int row = 0; row <= Globals().LastRow; ++row) SetMark(row, !IsMarked(row));
}
