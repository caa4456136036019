#pragma once

#include <QString>

/// Interface of a selection window to the query and the printed selection text.
class SelectionSource {
  public:
    virtual ~SelectionSource() = default;
    /// A condition on table.column in brackets, such as "(M担当者.部門コード = '010')"; empty without a selection.
    virtual QString BuildSelectionCondition(const QString& table, const QString& column) const = 0;
    /// Description of the selection; empty without one.
    virtual QString DescribeSelection() const = 0;
};
