#pragma once

#include <utility>
#include <vector>

#include "database/Database.h"
#include "screen/Form.h"
#include "screen/ListView.h"
#include "selection/ListWindowLayout.h"

/// Base class of the list windows: title, list, btn_戻る. Column titles sort, Esc and the close box run btn_戻る. The
/// user can make the window taller: the list gets more whole rows, the buttons stay at the bottom. Loads once, when
/// first shown: Prepare, columns, LoadList, no row selected. Allocate with new. Derived classes build the other
/// controls and run the query. Afterwards ConnectLookup or ConnectMultiSelect (SelectionWindow.h) must set the handlers
/// of the rows and of btn_戻る; ConnectList chooses between them.
class ListWindow : public Form {
  public:
    explicit ListWindow(ListWindowDefinition definition);

    const ListWindowDefinition& Definition() const { return definition_; }
    ListView& List() const;

  protected:
    /// Fills the class lists, and moves the terms of ListCondition for which the window has items into these items.
    virtual void Prepare() {}
    /// Clears the list and fills it in the order of the query.
    virtual void LoadList() = 0;

    /// The current record as a list row. The first column is the code; a Null gives an empty cell.
    ListRow RowOf(const database::Recordset& record) const;
    /// Sets ActiveItem when the item gets the focus.
    static void TrackActiveItem(Control& item);
    /// Connects the number of a class and its combo box: a change of one sets the other. `taken` gets each new number.
    static void PairClass(Control& number, Control& list, const std::function<void(int value)>& taken);

    void resizeEvent(QResizeEvent* event) override;

  private:
    void OnLoad();
    void LetUserMakeTaller();
    void SortByColumn(int column);

    ListWindowDefinition definition_;
    int smallestHeight_ = 0;  ///< 0 before the window is laid out
    int smallestList_ = 0;
    std::vector<std::pair<QWidget*, int>> belowList_;  ///< with their position in the smallest window
};

/// Turns a list window into a lookup (LookupController.cpp). Enter in the list or a click on a row writes the row's
/// code to ListResultItem, closes the window and moves the focus to ListResultItem, then to the next item that can take
/// it from ListNextItem on, so that LostFocus of ListResultItem accepts the code. btn_戻る closes the window and
/// returns the focus to ListResultItem without changing its text. Both enable the calling window again and clear
/// ListCondition.
void ConnectLookup(ListWindow& window);
