#pragma once

#include <QString>

#include <functional>

#include "inquiry/ConditionProcedures.h"
#include "screen/Form.h"

/// The one main screen. Its looks are built by the functions in MainFormPanels.h; its handlers change the state and
/// ask for a paint. The parts of the class lie in frm要員名簿照会.cpp (set-up and shared helpers), …Head.cpp,
/// …Lookups.cpp, …List.cpp and …Commands.cpp.
class frm要員名簿照会 : public Form {
  public:
    /// `leave` ends the process; it runs after the wheel hook is gone.
    explicit frm要員名簿照会(std::function<void()> leave);

    /// Where the title items of the list, its rows and the head's neutral places end: kind 1 a title or the head,
    /// kind 2 a row. `name` is the head item that gets the focus afterwards; a name that is none moves nothing.
    /// True when a range end is missing.
    bool ItemClicked(int kind, int position, const QString& name);
    /// The same for the two left panels of a row, which leave the focus alone after a launch.
    bool RowPanelClicked(int kind, int position, const QString& name);

    /// Result of CheckRangeEnds; puts the output buttons right.
    int ValidateHead();
    /// All six output buttons follow the rows, never the head.
    void SetOutputButtons();
    void FocusMissingRangeEnd(int missing);
    void FocusHeadItemByName(const QString& name);
    /// Focus to the first item at or behind `control` in tab order that can take it.
    void MoveFocus(Control& control);

    void SetupForm();
    void FillConditionLists();
    void ResetListArea();
    /// To be called after every search and clear.
    void SetupScrollBar();

  private:
    void OnLoad();
    void RunFirstSearch();
    void Leave();

    void WireHead();
    void WireRange(const RangeDefinition& range);
    void WireRangeItem(Range range, const QString& item, bool start);
    void WireSearchText(const SearchTextDefinition& text);
    void WireKind(const KindDefinition& kind);
    /// GotFocus: sends the focus back to an empty range end among the first `reach` ranges.
    bool RedirectFocus(int reach);
    /// Opens the lookup window of a range item, with the condition that its range gives.
    void OpenLookupOf(Control& item);

    void WireList();
    void WireRow(int position);
    void ScrollList();

    void WireCommands();
    void Search();
    void Clear();
    void Output(int operation, const QString& question, const std::function<void()>& action);
    void OutputText();
    void LaunchRow(int position);

    /// The handler behind the guards: it does nothing while the screen is painted or a sibling is awaited.
    static std::function<void()> Guarded(std::function<void()> handler);

    std::function<void()> leave_;
};
