#pragma once

#include <QList>
#include <QRect>
#include <QString>
#include <QStringList>

#include "inquiry/SearchConditions.h"

class Button;
class Control;
class Form;

struct ListColumn {
    QString title;
    int width;      ///< twips
    QString field;  ///< of the query
};

/// A lookup returns the code of one row; a selection replaces the range by the checked rows.
enum class ListUse { Lookup, Selection };

/// The values in which list windows differ.
struct ListWindowDefinition {
    Range range;  ///< whose codes the list has
    ListUse use;
    QString caption;  ///< of the window frame
    QString title;    ///< at the top of the window
    QString list;     ///< name of the list control
    QList<ListColumn> columns;
    /// Lookups: unloaded on closing if the main form's name contains this word, since that program changes the rows
    /// shown. Otherwise the window is hidden and keeps its rows.
    QString unloadWord;

    /// Of the form.
    const QString& Name() const {
        const RangeCondition& condition = ConditionOf(range);
        return use == ListUse::Lookup ? condition.lookup : condition.selection.window;
    }
};

// Layout of the list windows in pixels. From top to bottom: title, head of n lines, list, a line of buttons with
// btn_戻る at its right end.

/// Creates the controls that every list window has; ArrangeListFrame places them.
void BuildListFrame(Form& form, const ListWindowDefinition& definition);
/// Places title, list and btn_戻る for a head of `headHeight` pixels and a list of `visibleRows` rows; fixes the
/// window's size.
void ArrangeListFrame(Form& form, const ListWindowDefinition& definition, int headHeight, int visibleRows);

/// Rectangle on a 0-based line of the head.
QRect HeadRect(int left, int line, int width);
int HeadHeight(int lines);
/// Left edge of the head's items and of the list.
inline constexpr int kListLeft = 10;

Button& MakeListButton(Form& form, const QString& name, const QString& caption);
/// Places existing buttons in the line below the list, from the left.
void PlaceBelowList(Form& form, const QStringList& buttons);
struct ListButton {
    QString name, caption;
};
/// Creates buttons in a window that is laid out: in the line of btn_戻る, or, if they do not fit, in an additional line
/// above it with the last button above btn_戻る. In the tab order they come before btn_戻る.
void AddListButtons(Form& form, const QList<ListButton>& buttons);
/// Creates title, number and list of a class, from `left` to `left + width`.
void MakeClassItems(Form& form, const QString& name, const QString& title, int left, int line, int width);
/// Sets the tab order; controls not named follow in their present order.
void NumberStops(Form& form, const QStringList& names);

/// Lays out a master list window; with `hasStatus` also creates 稼動状況区分 and btn_画面クリア.
void BuildMasterItems(Form& form, const ListWindowDefinition& definition, bool hasStatus);
