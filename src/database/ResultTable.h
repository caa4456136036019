#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>
#include <memory>
#include <vector>

namespace database {

/// Names and declared types of a result's columns; shared by all results of one prepared statement.
class ColumnSet {
  public:
    /// `declaredType` as the schema spells it; it is kept in capitals, and is empty for an expression.
    void Add(const QString& name, const QString& declaredType);

    int Count() const { return static_cast<int>(columns_.size()); }
    const QString& Name(int column) const { return columns_[static_cast<size_t>(column)].name; }
    const QString& DeclaredType(int column) const { return columns_[static_cast<size_t>(column)].declaredType; }
    /// Without regard to letter case; the first of equal names. -1 when there is no such column. A load asks
    /// more than a million times, so this hashes and allocates nothing.
    int Find(QStringView name) const;

  private:
    struct Column {
        QString name;
        QString declaredType;
    };
    size_t FreeOrEqualPlace(QStringView name) const;
    void Rehash(size_t places);

    std::vector<Column> columns_;
    std::vector<int> places_;  // open addressing, a power of two, at most half full; -1 is free
};

/// All rows of a result, in UTF-8 in a few large blocks: a third of the memory of a QString for each cell, and
/// only the cells that are asked for are ever turned into one.
class ResultTable {
  public:
    static constexpr qsizetype kLongestCell = qsizetype{16} << 20;  // bytes; no cell of the suite comes near
    static constexpr size_t kMostBytes = size_t{1} << 30;           // of all cells; some millions of staff rows

    explicit ResultTable(std::shared_ptr<const ColumnSet> columns, size_t mostBytes = kMostBytes)
        : columns_(std::move(columns)), mostBytes_(mostBytes) {}

    const ColumnSet& Columns() const { return *columns_; }
    const std::shared_ptr<const ColumnSet>& SharedColumns() const { return columns_; }
    int RowCount() const { return rowCount_; }
    /// Bytes held, roughly.
    qsizetype Size() const;

    /// DatabaseError when the rows before it have more than the most bytes: an endless result has to end somewhere.
    void BeginRow();
    /// Appends the next cell of the row begun last. DatabaseError for more than kLongestCell.
    void AppendText(QByteArrayView utf8);
    void AppendNull();
    [[noreturn]] static void RefuseCell();

    bool IsNull(int row, int column) const;
    /// Where the cell above has the same text, both share one QString: names of departments and classes are the
    /// same for thousands of rows.
    QString Text(int row, int column) const;
    /// The cell's bytes, without a copy; not of a Null.
    QByteArrayView Utf8(int row, int column) const;

    /// Gives back the memory of rows that a forward-only reader has left behind. They must not be asked for again.
    void ForgetRowsBefore(int row);

  private:
    static constexpr int kRowsInBlock = 256;
    static constexpr quint32 kNullMark = 0x80000000U;

    struct Block {
        std::vector<char> text;  // room for more than is used
        size_t used = 0;
        std::vector<quint32> ends;  // end of each cell in `text`, row after row; a Null carries the mark
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
    mutable std::vector<LastText> lastTexts_;  // for each column, once the first cell has been asked for
    int rowCount_ = 0;
    int forgottenBlocks_ = 0;
};

}  // namespace database
