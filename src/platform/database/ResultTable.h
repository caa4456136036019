#pragma once

#include <QByteArrayView>
#include <QHash>
#include <QString>
#include <QStringView>
#include <memory>
#include <vector>

namespace platform {

/// Names and declared types of a result's columns; shared by all results of one prepared statement.
struct ColumnSet {
    std::vector<QString> names;
    std::vector<QString> declaredTypes;  // in capitals, empty for an expression
    QHash<QString, int> ordinals;        // by name as spelled; a second index by folded name stands in `folded`
    QHash<QString, int> folded;

    void Add(const QString& name, const QString& declaredType);
    /// -1 when there is no such column. As spelled first, then without regard to letter case.
    int Find(QStringView name) const;
};

/// All rows of a result, in UTF-8 in a few large blocks: a third of the memory of a QString for each cell, and
/// only the cells that are asked for are ever turned into one.
class ResultTable {
  public:
    explicit ResultTable(std::shared_ptr<const ColumnSet> columns) : columns_(std::move(columns)) {}

    const ColumnSet& Columns() const { return *columns_; }
    int RowCount() const { return static_cast<int>(rows_.size()); }

    void BeginRow();
    /// Appends the next cell of the row begun last.
    void AppendText(QByteArrayView utf8);
    void AppendNull();

    bool IsNull(int row, int column) const;
    QString Text(int row, int column) const;

  private:
    struct Row {
        quint32 block;
        quint32 firstByte;
        quint32 firstCell;
    };
    std::shared_ptr<const ColumnSet> columns_;
    std::vector<Row> rows_;
    std::vector<quint32> cellEnds_;  // end of each cell, counted from the row's first byte; a Null has the top bit
    std::vector<std::vector<char>> blocks_;
};

}  // namespace platform
