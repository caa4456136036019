#pragma once

#include <QString>

#include <functional>

#include "access/ProgramRights.h"
#include "inquiry/ConditionProcedures.h"
#include "screen/Form.h"

/// The main form. Its handlers change the state and repaint (inquiry/ScreenState.h).
///
/// frm要員名簿照会.cpp has the set-up and what several handlers use; files with the endings Head, List, Menus and
/// Commands have the handlers of these areas, those with HeadLayout, ListLayout, OutputLayout and Hints the procedures
/// at the end of this header.
class frm要員名簿照会 : public Form {
  public:
    /// `leave` ends the process; btn_終了 and the close box call it after the wheel hook has been removed.
    explicit frm要員名簿照会(std::function<void()> leave);

    /// Click on a title of the list or the head (`kind` 1) or on the row at `position` (`kind` 2), whose staff member
    /// is then opened in the program 要員台帳更新. Afterwards the head item `name` gets the focus; a name that is no
    /// head item moves nothing. If a range end is missing, it gets the focus instead, and the result is true.
    bool ItemClicked(int kind, int position, const QString& name);
    /// Click on one of the two left panels of the row at `position`: the same as `kind` 2 without a name.
    bool RowPanelClicked(int position);

    /// Updates the output buttons and returns CheckRangeEnds().
    int ValidateHead();
    /// Enables the six output buttons if there are rows, otherwise disables them.
    void SetOutputButtons();
    /// `missing`: result of CheckRangeEnds; for 0 the focus does not move.
    void FocusMissingRangeEnd(int missing);
    /// Ignores a name that is no range, text or class item of the head.
    void FocusHeadItemByName(const QString& name);
    /// Moves the focus to the first control at or after `control` in tab order that can take it.
    void MoveFocus(Control& control);

    // Steps of Load, before and after the first search.
    /// Sets size and title of the window, the scroll bar, the class lists and the remembered head items.
    void SetupForm();
    /// Fills the lists of the classes from their tables, and that of the display orders.
    void FillConditionLists();
    /// Disables the scroll bar, resets it to 0 and empties お知らせ.
    void ResetListArea();
    /// Sets enabled state, value and maximum of the scroll bar for the row store; after every search and clear.
    void SetupScrollBar();

  private:
    enum class Bound { Start, End };
    struct OutputButton;

    void OnLoad();
    void RunFirstSearch();
    void Leave();

    void ConnectHead();
    void ConnectRangeItem(const RangeCondition& range, Bound bound);
    void ConnectText(const TextCondition& text);
    void ConnectKind(const KindCondition& kind);
    /// For GotFocus: moves the focus back to the first empty range end if it is one of the first `reach` ranges. True
    /// if so.
    bool RedirectFocus(int reach);
    /// Opens the lookup of a range item and returns when it has closed. The list begins at the start of the range.
    void OpenLookup(const RangeCondition& range, Bound bound);

    void ConnectList();
    void ConnectRow(int position);
    void ScrollList();

    void ConnectMenus();
    /// Opens a context menu of a panel of the list.
    void ConnectMenu(Control& panel, const std::function<void(const QPoint&)>& open);
    /// The menu of the check marks at a place of the screen; `row` is -1 on the title.
    void OpenMarkMenu(const QPoint& place, int row);
    /// The menu of a row at a place of its panel.
    void OpenCopyMenu(const QWidget& panel, const QPoint& place, int row);

    void ConnectCommands();
    void Search();
    void Clear();
    /// Runs the output if it is permitted and the user confirms the question.
    void Output(const OutputButton& output);
    void OutputText();
    /// LaunchStaffRegistration with the row's panels coloured meanwhile.
    void LaunchRow(int position);

    /// Wraps a handler: it is ignored while the screen is being painted or another program is busy with a row.
    static std::function<void()> Guarded(std::function<void()> handler);

    std::function<void()> leave_;
};

// Layout of the main form, one procedure per area: each creates the controls of its area. Positions are pixels there;
// Control returns them in twips.

/// Title and manual button.
void BuildTitlePanel(Form& form);
/// Ranges, search texts and classes with their selection buttons; search and clear.
void BuildHeadPanel(Form& form);
/// Left panels, tab pages, titles, the eight row positions and the scroll bar.
void BuildListPanel(Form& form);
/// Output buttons, the end button, the notice, and the status line beside the titles of the tab; after BuildListPanel.
void BuildOutputPanel(Form& form);

/// Sets the tab order: texts, classes, ranges, order, the head's buttons, ヘッド終了, then tab and outputs.
void SetTabOrder(Form& form);

/// Sets the tooltips of the head and of the staff codes.
void SetHints(Form& form);
