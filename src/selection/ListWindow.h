#pragma once

#include "database/Database.h"
#include "screen/Form.h"
#include "screen/ListView.h"
#include "selection/ListWindowLayout.h"

/// Base class of the list windows: title, list, btn_戻る. Column titles sort, Esc and the close box run btn_戻る. Loads
/// once, when first shown: Prepare, columns, LoadList, no row selected. Allocate with new. Derived classes build the
/// other controls and run the query; a controller (LookupController, MultiSelectController) connects what choosing a
/// row and btn_戻る do.
class ListWindow : public Form {
  public:
    explicit ListWindow(ListWindowDefinition definition);

    const ListWindowDefinition& Definition() const { return definition_; }
    ListView& List() const;

  protected:
    /// Fills the class lists and extracts the terms that the window has items for from ListCondition.
    virtual void Prepare() {}
    /// Clears the list and fills it in the order of the query.
    virtual void LoadList() = 0;

    /// The current record as a list row. The first column is the code; a Null gives an empty cell.
    ListRow RowOf(const database::Recordset& record) const;
    /// Sets ActiveItem when the item gets the focus.
    static void TrackActiveItem(Control& item);
    /// Keeps a class number and its list in step; `taken` receives each new value.
    static void PairClass(Control& number, Control& list, const std::function<void(int value)>& taken);

  private:
    void OnLoad();
    void SortByColumn(int column);

    ListWindowDefinition definition_;
};

/// Turns a list window into a lookup. Enter in the list or a click on a row writes the row's code to ListResultItem,
/// closes the window and moves the focus to ListResultItem, then to ListNextItem, so that the caller accepts the code.
/// btn_戻る closes the window and returns the focus to ListResultItem without changing its text. Both enable the
/// calling window again and clear ListCondition.
void ConnectLookup(ListWindow& window);
