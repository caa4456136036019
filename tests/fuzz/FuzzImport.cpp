// Output of the process that reads a foreign database file: a stream of frames is either rejected or parsed exactly as
// encoded, and every accepted row yields one list of literals. The seeds are that process's output for the files of
// tests/setup/jet. Frames, column definitions and dates are fuzzed here, since they are parsed by this project. Damaged
// pages and rows are tested in a separate process, in tests/setup/DamagedFilesTest.cpp, because the library that reads
// them may crash.

#include <cstring>

#include "data/ServerSchema.h"
#include "fuzz/FuzzInput.h"
#include "platform/RuntimeError.h"
#include "setup/schema/TableCopy.h"
#include "setup/storage/JetFile.h"
#include "setup/storage/TableStream.h"

using namespace Qt::StringLiterals;

namespace {

/// Number of literals in "(NULL, 'it''s')"; -1 for any other syntax.
qsizetype Literals(QStringView list) {
    if (!list.startsWith(u'(') || !list.endsWith(u')')) return -1;
    list = list.sliced(1).chopped(1);
    for (qsizetype count = 1;; ++count) {
        if (list.startsWith(u"NULL")) {
            list = list.sliced(4);
        } else {
            if (!list.startsWith(u'\'')) return -1;
            qsizetype end = 1;
            while (end < list.size() && (list[end] != u'\'' || list.sliced(end).startsWith(u"''")))
                end += list[end] == u'\'' ? 2 : 1;
            if (end >= list.size()) return -1;
            list = list.sliced(end + 1);
        }
        if (list.isEmpty()) return count;
        if (!list.startsWith(u", ")) return -1;
        list = list.sliced(2);
    }
}

void MapRow(const TableDefinition& table, const QStringList& columns, const QStringList& row) {
    const setup::ColumnMap map(table, columns);
    QString list;
    try {
        list = map.Literals(row);
    } catch (const platform::RuntimeError&) {
        Require(row.size() != columns.size(), "a row of all columns is taken");
        return;
    }
    Require(row.size() == columns.size(), "a row of other columns is refused");
    Require(Literals(list) == table.columns.size(), "a row is one literal for each column of the suite");
}

void CheckDate(QByteArrayView bytes) {
    double days = 0;
    if (bytes.size() < static_cast<qsizetype>(sizeof days)) return;
    std::memcpy(&days, bytes.data(), sizeof days);
    const std::optional<QString> text = setup::JetDate(days, false);
    Require(!text || text->size() == 8 || text->size() == 15,
            "a date is eight digits, or fifteen characters with a time");
}

void ReadStream(QByteArray bytes) {
    QStringList columns;
    const QList<TableDefinition> tables = TablesOf(DatabaseKind::General);
    for (qsizetype number = 0; !bytes.isEmpty(); ++number) {
        const qsizetype length = setup::FrameLength(bytes.first(std::min(setup::kFrameHead, bytes.size())));
        if (length > bytes.size() - setup::kFrameHead) return;
        const setup::Frame frame = setup::ParseFrame(bytes.sliced(setup::kFrameHead, length));
        Require(setup::EncodeFrame(frame) == bytes.first(setup::kFrameHead + length), "a frame has one encoding");
        if (frame.kind == setup::FrameKind::Names) columns = setup::ParseNames(frame, setup::kMostColumns);
        if (frame.kind == setup::FrameKind::End) Require(setup::ParseCount(frame) >= 0, "counts are not negative");
        if (frame.kind == setup::FrameKind::Row) MapRow(tables[number % tables.size()], columns, frame.texts);
        bytes = bytes.sliced(setup::kFrameHead + length);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    CheckDate(bytes);
    try {
        ReadStream(bytes);
    } catch (const platform::RuntimeError&) {
        return 0;  // rejected
    }
    return 0;
}
