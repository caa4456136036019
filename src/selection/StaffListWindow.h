#pragma once

#include "selection/ListWindow.h"
#include "selection/StaffListQuery.h"

/// What tells the windows over the staff apart, beside what tells list windows apart.
struct StaffListDefinition {
    ListWindowDefinition window;
    /// Where the row counter begins; 1000 ends a load and shows the notice. From 0 the notice comes with the
    /// thousandth row, from -1 with one more, which the query's own limit does not let happen.
    int firstCount = 0;
};

/// Finds staff by seven searches, each with a button of its own. The items keep what was accepted when they were left;
/// only a button searches. A search never gives more than 1000 rows.
class StaffListWindow : public ListWindow {
  public:
    explicit StaffListWindow(StaffListDefinition staff);

    /// Empties the list and runs the search that was chosen last.
    void LoadStaffList();
    /// Takes code, department and section out of ListCondition, which keeps what is left; name and kana become empty.
    void ReadConditionIntoItems();
    /// Writes all conditions into their items.
    void ShowConditionItems();
    /// A search by one item can be pressed while the item holds something; btn_全て選択, where the window has it, with
    /// 1 to 50 rows in the list.
    void UpdateSearchButtons();

  protected:
    void Prepare() override;
    void LoadList() override;

  private:
    void WireTexts();
    void WireCode(const QString& name, const QString& mask, QString StaffListConditions::*field,
                  const std::function<void()>& accepted);
    void WireMaster(const QString& name, const QString& window, const QString& button);
    void WireClasses();
    void WireButtons();
    void SkipFocus(Control& item);
    void Search(int kind);
    void ClearConditions();

    StaffListDefinition staff_;
    StaffListConditions conditions_;
    int searchKind_ = kCompositeSearch;
};
