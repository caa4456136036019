#pragma once

#include <QObject>
#include <QStringList>

#include "inquiry/SelectionSource.h"

class ListWindow;
struct PickDefinition;

/// The marked rows of a list window as a selection. They are kept nowhere but in the list. Found by query and condition
/// text from its making until the window is unloaded; goes with the window.
class MultiSelectRows : public QObject, public SelectionSource {
  public:
    MultiSelectRows(ListWindow& window, const PickDefinition& definition);
    ~MultiSelectRows() override;

    /// Codes of the marked rows in the order shown.
    QStringList Codes() const;

    /// One term for each marked row, joined by OR. Codes go in as they stand.
    QString BuildSelectionCondition(const QString& table, const QString& column) const override;
    /// The names as the master has them now. What has gone from the master is left out; where that was the first mark,
    /// the text begins with a comma.
    QString DescribeSelection() const override;

  private:
    ListWindow& window_;
    const PickDefinition& definition_;
};
