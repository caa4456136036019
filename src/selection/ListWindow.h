#pragma once

#include "database/Database.h"
#include "screen/Form.h"
#include "screen/ListView.h"
#include "selection/ListWindowDefinition.h"

/// What all list windows have in common: a title, a list, btn_戻る. Column titles sort, Esc and the close box run
/// btn_戻る. It is loaded once, when it is shown first: Prepare, the columns, LoadList, nothing selected. Made with
/// new. The classes derived build the rest and say what is queried; what a chosen row and btn_戻る do is wired by who
/// makes the window (LookupController).
class ListWindow : public Form {
  public:
    explicit ListWindow(ListWindowDefinition definition);

    const ListWindowDefinition& Definition() const { return definition_; }
    ListView& List() const;

  protected:
    /// Fills the class lists and takes out of ListCondition what the window understands.
    virtual void Prepare() {}
    /// Empties the list and fills it in the order of the query.
    virtual void LoadList() = 0;

    /// The present record as a list row. The first column is the code; a Null leaves its cell empty.
    ListRow RowOf(const database::Recordset& record) const;
    /// The item becomes ActiveItem when it gets the focus.
    static void ReportsItself(Control& item);
    /// Pairs a class number with its list: a change of either is shown by the other, and `taken` gets the value.
    static void PairClass(Control& number, Control& list, const std::function<void(int value)>& taken);

  private:
    void OnLoad();
    void SortByColumn(int column);

    ListWindowDefinition definition_;
};
