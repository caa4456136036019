#pragma once

#include <QObject>
#include <QStringList>

#include <array>

#include "globals/InquiryRecords.h"
#include "inquiry/SelectionSource.h"

class ListWindow;

/// A window that replaces a code range of the head by single rows of a master.
struct MultiSelectDefinition {
    QString window;    ///< name of the form
    QString button;    ///< on the main form, opens the window
    QString nextItem;  ///< on the main form: start of the range that the selection replaces
    bool ConditionFlags::*flag;
    QString table;      ///< master with the names of the selected codes
    QString nameField;  ///< column of that master
    QString prefix;     ///< of the selection text
    /// Has btn_全て選択, and is unloaded if nothing is checked. The other windows keep their list and status.
    bool forStaff = false;
};

/// In the order of the buttons.
const std::array<MultiSelectDefinition, 4>& MultiSelectDefinitions();

/// The checked rows of a list window as a selection. The list is the only storage. Registered in SelectionWindows from
/// construction until the window is unloaded; owned by the window.
class MultiSelectRows : public QObject, public SelectionSource {
  public:
    MultiSelectRows(ListWindow& window, const MultiSelectDefinition& definition);
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
    const MultiSelectDefinition& definition_;
};

/// Turns a list window into a multi-select window if its name is in MultiSelectDefinitions: check boxes, extended
/// selection, the buttons that check and uncheck rows. Enter and a click choose nothing. btn_戻る sets the flag, hides
/// or unloads the window and re-enables the main form. False, and no change, for any other list window.
bool ConnectMultiSelect(ListWindow& window);
