#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>
#include <memory>
#include <vector>

#include "database/DatabaseTypes.h"

namespace database {

/// Names and declared types of a result's columns; shared by all results of a prepared statement.
class ColumnSet {
  public:
    /// `declaredType` as written in the schema, empty for an expression; stored in upper case.
    void Add(const QString& name, const QString& declaredType);

    int Count() const { return static_cast<int>(columns_.size()); }
    const QString& Name(int column) const { return columns_[static_cast<size_t>(column)].name; }
    const QString& DeclaredType(int column) const { return columns_[static_cast<size_t>(column)].declaredType; }
    /// Index of the column, ignoring case; the first of equal names; -1 if there is none. Called more than a million
    /// times per load, so it hashes without allocating.
    int Find(QStringView name) const;

  private:
    struct Column {
        QString name;
        QString declaredType;
    };
    size_t FreeOrEqualPlace(QStringView name) const;
    void Rehash(size_t places);

    std::vector<Column> columns_;
    std::vector<int> places_;  // open addressing; size is a power of two, at most half full; -1 is free
};

/// All rows of a result, as UTF-8 in a few large blocks: a third of the memory of a QString per cell. A QString is
/// created only for cells that are read. Filled row by row: BeginRow, then AppendText or AppendNull for each column.
/// Rows and columns count from 0.
class ResultTable {
  public:
    static constexpr qsizetype kLongestCell = qsizetype{16} << 20;  // bytes; far above any cell of the suite
    static constexpr size_t kMostBytes = size_t{1} << 30;           // of all cells; some million staff rows

    explicit ResultTable(std::shared_ptr<const ColumnSet> columns, size_t mostBytes = kMostBytes)
        : columns_(std::move(columns)), mostBytes_(mostBytes) {}

    const ColumnSet& Columns() const { return *columns_; }
    const std::shared_ptr<const ColumnSet>& SharedColumns() const { return columns_; }
    int RowCount() const { return rowCount_; }
    /// Approximate memory use in bytes.
    qsizetype Size() const;

    /// Starts a row. Throws kEngineFailure if the rows so far exceed `mostBytes`, so that an endless result terminates.
    void BeginRow();
    /// Appends a cell to the last row. Throws kStatementFailure if it is longer than kLongestCell.
    void AppendText(QByteArrayView utf8);
    void AppendNull();
    /// Throws kStatementFailure for a cell longer than kLongestCell, for readers that know the length before the value.
    [[noreturn]] static void RefuseCell();

    bool IsNull(int row, int column) const;
    /// The cell's text, empty for a Null. Shares the QString that was returned last for the column if the text is
    /// equal: names of departments and classes repeat for thousands of rows.
    QString Text(int row, int column) const;
    /// The cell's bytes, without a copy. Must not be called for a Null.
    QByteArrayView Utf8(int row, int column) const;

    /// Frees memory of the rows before `row`, for forward-only readers. Those rows must not be read again.
    void ForgetRowsBefore(int row);

  private:
    static constexpr int kRowsInBlock = 256;
    static constexpr quint32 kNullMark = 0x80000000U;

    struct Block {
        std::vector<char> text;  // capacity; `used` bytes are filled
        size_t used = 0;
        std::vector<quint32> ends;  // end offset of each cell in `text`, row by row; kNullMark is set for a Null
    };
    struct Bytes {
        const char* begin;
        quint32 size;
    };
    struct LastText {
        int row = -1;
        QString text;
    };
    size_t CellIndex(int row, int column) const;
    Bytes CellBytes(int row, int column) const;
    bool SameBlock(int row, int other) const { return row / kRowsInBlock == other / kRowsInBlock; }

    std::shared_ptr<const ColumnSet> columns_;
    size_t mostBytes_;
    size_t bytesBefore_ = 0;  // in all blocks before the last
    std::vector<Block> blocks_;
    mutable std::vector<LastText> lastTexts_;  // per column; filled from the first Text() on
    int rowCount_ = 0;
    int forgottenBlocks_ = 0;
};

/// Returns sorted rows, for an engine that cannot sort text in the suite's order. The last order.size() columns of
/// `rows` are the keys; the result does not have them. Nulls come first in an ascending key, last in a descending one;
/// the sort is stable. At most `limit` rows are returned; a negative limit means all.
std::shared_ptr<ResultTable> SortRows(const ResultTable& rows, const QList<SortKey>& order, int limit);

}  // namespace database
