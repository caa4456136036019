#pragma once

#include <QString>

/// What a selection window offers to the query and to the printed condition text while it holds a selection.
class SelectionSource {
  public:
    virtual ~SelectionSource() = default;
    /// One bracketed condition over table.column, such as "(M担当者.部門コード = '010')"; empty without a selection.
    virtual QString BuildSelectionCondition(const QString& table, const QString& column) const = 0;
    /// The selection in words, empty without one.
    virtual QString DescribeSelection() const = 0;
};
