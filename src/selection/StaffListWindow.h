#pragma once

#include "selection/ListWindow.h"
#include "selection/StaffListQuery.h"

/// The values in which the two staff list windows differ.
struct StaffListDefinition {
    ListWindowDefinition window;
    /// Initial row counter; at 1000 loading stops and the notice appears. From 0 that is the thousandth row; from -1 it
    /// would be the 1001st, which the query's TOP 1000 never returns.
    int firstCount = 0;
};

/// List of staff with seven searches (ListSearch), one button each. Items accept their text on LostFocus; only a button
/// starts a search. At most 1000 rows.
class StaffListWindow : public ListWindow {
  public:
    explicit StaffListWindow(StaffListDefinition staff);

    /// Clears the list and runs the last chosen search.
    void LoadStaffList();
    /// Sets the conditions from ListCondition: moves code, department and section out of it, reads the names of the
    /// latter two, clears name and kana. ListCondition keeps the rest.
    void ReadConditionIntoItems();
    /// Writes all conditions into their items.
    void ShowConditionItems();
    /// Enables the search button of each item that is not blank, and btn_全て選択, if present, for 1 to 50 rows.
    void UpdateSearchButtons();

  protected:
    void Prepare() override;
    void LoadList() override;

  private:
    void BuildItems();
    void ConnectTexts();
    void ConnectCode(const QString& name, const QString& mask, QString StaffListConditions::*field,
                     const std::function<void()>& accepted);
    void ConnectMaster(const QString& name, Range range, const QString& button);
    void ConnectClasses();
    void ConnectButtons();
    void SkipFocus(Control& item);
    void Search(int kind);
    void ClearConditions();

    StaffListDefinition staff_;
    StaffListConditions conditions_;
    int searchKind_ = kCompositeSearch;
};

/// A new, connected window over the staff by the form's name; nullptr for any other name.
ListWindow* MakeStaffListWindow(const QString& name);
