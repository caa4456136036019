#pragma once

#include <QObject>
#include <QStringList>

#include "inquiry/SearchConditions.h"

class ListWindow;

// For the windows that contain a selection: multi-select windows (checked rows of a list window) and value windows
// (wnd担当者複数指定). The first three procedures are for both.

/// Makes the selection available to query and selection text under the window's name. `source` is not owned and must be
/// unregistered before it is destroyed.
void RegisterSelection(const QString& window, SelectionSource& source);
/// Removes the registration, unless another window of that name has registered since.
void UnregisterSelection(const QString& window, const SelectionSource& source);

/// Returns to the main form after a window has set its flag and closed: enables and repaints the form and moves the
/// focus to ListNextItem, or to the next item in tab order if the flag has disabled that one.
void ReturnToHead();

/// The checked rows of a list window as a selection. The list is the only storage. Registered in SelectionWindows from
/// construction until the window is unloaded; owned by the window.
class MultiSelectRows : public QObject, public SelectionSource {
  public:
    MultiSelectRows(ListWindow& window, const RangeCondition& condition);
    ~MultiSelectRows() override;

    /// Codes of the checked rows in the order shown.
    QStringList Codes() const;

    /// "(table.column = 'code' OR ...)". Codes are not escaped: they come from the master itself.
    QString BuildSelectionCondition(const QString& table, const QString& column) const override;
    /// The names as the master has them now. A code that the master no longer has is left out; if that was the first
    /// one, the text begins with a comma.
    QString DescribeSelection() const override;

  private:
    ListWindow& window_;
    const RangeCondition& condition_;
};

/// Turns a list window into a multi-select window, which replaces its range by single rows of the master: check boxes,
/// extended selection, the buttons that check and uncheck rows. Enter and a click choose nothing. btn_戻る sets the
/// range's flag if any row is checked and clears it otherwise, hides the window (that of the staff is unloaded if no
/// row is checked) and returns to the main form.
void ConnectMultiSelect(ListWindow& window);

/// ConnectLookup or ConnectMultiSelect, by the window's use.
void ConnectList(ListWindow& window);
