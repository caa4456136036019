#pragma once

#include "selection/ListWindow.h"

/// What tells the windows over the masters apart, beside what tells list windows apart.
struct MasterListDefinition {
    ListWindowDefinition window;
    QString table;
    /// Departments and sections: the list is narrowed by 稼動状況区分. Positions have none, and take ListCondition
    /// whole.
    bool hasStatus = false;
};

/// A master as one list. Departments and sections show what is in operation (value 1) until another status is picked
/// and btn_画面クリア pressed; positions begin at the code that the caller left in ListCondition.
class MasterListWindow : public ListWindow {
  public:
    explicit MasterListWindow(MasterListDefinition master);

    /// Empties the list and reads it anew, with the present status.
    void LoadMasterList();

  protected:
    void Prepare() override;
    void LoadList() override { LoadMasterList(); }

  private:
    void WireStatus();
    QString ListQuery() const;

    MasterListDefinition master_;
    int status_ = 0;
};
