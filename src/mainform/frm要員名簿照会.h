#pragma once

#include <QString>

#include <functional>

#include "access/ProgramRights.h"
#include "inquiry/ConditionProcedures.h"
#include "screen/Form.h"

/// The main form. Its handlers change the state and repaint. The class is implemented in frm要員名簿照会.cpp (set-up,
/// shared helpers), …Head.cpp, …List.cpp and …Commands.cpp; the layout below in …HeadLayout.cpp, …ListLayout.cpp and
/// …OutputLayout.cpp.
class frm要員名簿照会 : public Form {
  public:
    /// `leave` ends the process; called after the wheel hook has been removed.
    explicit frm要員名簿照会(std::function<void()> leave);

    /// Click on a title of the list or the head (kind 1) or on the row at `position` (kind 2), which is opened for
    /// editing. Then the head item `name` gets the focus, unless it is unknown. True if a range end is missing.
    bool ItemClicked(int kind, int position, const QString& name);
    /// Click on one of the two left panels of the row at `position`; the focus does not move. True if a range end is
    /// missing.
    bool RowPanelClicked(int position);

    /// Updates the output buttons and returns CheckRangeEnds().
    int ValidateHead();
    /// Enables the six output buttons if there are rows.
    void SetOutputButtons();
    void FocusMissingRangeEnd(int missing);
    void FocusHeadItemByName(const QString& name);
    /// Moves the focus to the first control at or after `control` in tab order that can take it.
    void MoveFocus(Control& control);

    void SetupForm();
    void FillConditionLists();
    void ResetListArea();
    /// Must be called after every search and clear.
    void SetupScrollBar();

  private:
    enum class Bound { Start, End };

    void OnLoad();
    void RunFirstSearch();
    void Leave();

    void ConnectHead();
    void ConnectRangeItem(const RangeCondition& range, Bound bound);
    void ConnectText(const TextCondition& text);
    void ConnectKind(const KindCondition& kind);
    /// GotFocus: returns the focus to the first empty range end among the first `reach` ranges; true if there is one.
    bool RedirectFocus(int reach);
    /// Opens the lookup of a range item. The list begins at the start of the range.
    void OpenLookup(const RangeCondition& range, Bound bound);

    void ConnectList();
    void ConnectRow(int position);
    void ScrollList();

    void ConnectCommands();
    void Search();
    void Clear();
    void Output(Operation operation, const QString& question, const std::function<void()>& action);
    void OutputText();
    void LaunchRow(int position);

    /// Wraps a handler: it is ignored while the screen is being painted or another program is busy with a row.
    static std::function<void()> Guarded(std::function<void()> handler);

    std::function<void()> leave_;
};

// Layout of the main form, one function per area, separate from its handlers. All positions are pixels; Control reports
// them in twips.

/// Title and manual button.
void BuildTitlePanel(Form& form);
/// Ranges, search texts and classes with their selection buttons; search and clear.
void BuildHeadPanel(Form& form);
/// Left panels, tab pages, titles, the eight row positions and the scroll bar.
void BuildListPanel(Form& form);
/// Output buttons, the end button and the notice.
void BuildOutputPanel(Form& form);

/// Sets the tab order: texts, classes, ranges, order, the head's buttons, ヘッド終了, then tab and outputs.
void SetTabOrder(Form& form);
