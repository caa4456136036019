#pragma once

#include <QString>

#include "selection/ListWindow.h"

/// The values in which the master list windows differ.
struct MasterListDefinition {
    ListWindowDefinition window;
    /// True: the rows are filtered by 稼動状況区分. False (positions have no status): by the whole ListCondition.
    bool hasStatus = false;
};

/// The rows of one master. Departments and sections show those in operation (稼動状況区分 1, or the value in
/// ListCondition) until another status is chosen and btn_画面クリア pressed; positions are filtered by ListCondition.
class MasterListWindow : public ListWindow {
  public:
    explicit MasterListWindow(MasterListDefinition master);

    /// Reloads the list with the current status.
    void LoadMasterList();

  protected:
    void Prepare() override;
    void LoadList() override { LoadMasterList(); }

  private:
    void ConnectStatus();
    const QString& Table() const { return ConditionOf(Definition().range).master; }
    QString ListQuery() const;

    MasterListDefinition master_;
    int status_ = 0;
};

/// A new, connected window over the master of departments, sections or positions, by the form's name; nullptr for any
/// other name.
ListWindow* MakeMasterListWindow(const QString& name);

/// The loaded form of that name, hidden or not, otherwise a new window from `make`, which returns nullptr for an
/// unknown name. RuntimeError kItemNotFound for an unknown name.
Form& LoadedOrNew(const QString& name, ListWindow* (*make)(const QString& name));

/// Opens a master lookup from the list window `owner`, which is disabled meanwhile, and returns when it has closed.
/// `range`: Department, Section or Position; RuntimeError kItemNotFound for Staff. The chosen code is written to
/// `item`, then `next` gets the focus. ListResultItem and ListNextItem are restored afterwards, ListCondition is left
/// empty.
void OpenNestedLookup(Form& owner, Range range, Control& item, Control& next);

// Names by code; empty if there is no such row or the query fails.
QString LookUpDepartmentName(const QString& code);
QString LookUpSectionName(const QString& code);
