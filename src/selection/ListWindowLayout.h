#pragma once

#include <QList>
#include <QRect>
#include <QString>
#include <QStringList>

#include "inquiry/SearchConditions.h"

class Button;
class Control;
class Form;

// What the list windows consist of, and their layout.

/// A column of the list.
struct ListColumn {
    QString title;
    int width;      ///< twips
    QString field;  ///< column of the query
};

/// A lookup returns the code of one row; a selection replaces the range by the checked rows.
enum class ListUse { Lookup, Selection };

/// The values in which list windows differ.
struct ListWindowDefinition {
    Range range;  ///< the list has the codes of this range's master
    ListUse use;
    QString caption;  ///< of the window frame
    QString title;    ///< at the top of the window
    QString list;     ///< name of the list control
    QList<ListColumn> columns;
    /// Lookups only: if the main form's name contains this word, the window is unloaded on closing, since the program
    /// with that form changes the rows shown. Otherwise the window is hidden and keeps its rows.
    QString unloadWord;

    /// Name of the form, by range and use.
    const QString& Name() const {
        const RangeCondition& condition = ConditionOf(range);
        return use == ListUse::Lookup ? condition.lookup : condition.selection.window;
    }
};

// Layout of the list windows in pixels. From top to bottom: title, head of n lines, list, a line of buttons with
// btn_戻る at its right end. `form` must have what BuildListFrame creates, or Form::Item throws.

/// Creates title, list and btn_戻る; ArrangeListFrame places them.
void BuildListFrame(Form& form, const ListWindowDefinition& definition);
/// Places title, list and btn_戻る for a head of `headHeight` pixels and a list of `visibleRows` rows; fixes the
/// window's size.
void ArrangeListFrame(Form& form, const ListWindowDefinition& definition, int headHeight, int visibleRows);

/// Rectangle of an item on a line of the head, counted from 0.
QRect HeadRect(int left, int line, int width);
/// Height of a head with that many lines, for ArrangeListFrame.
int HeadHeight(int lines);
/// Left edge of the head's items and of the list.
inline constexpr int kListLeft = 10;

/// Creates a button in the font of the list windows; the caller places it.
Button& MakeListButton(Form& form, const QString& name, const QString& caption);
/// Places existing buttons, by name, in the line below the list, from the left.
void PlaceBelowList(Form& form, const QStringList& buttons);
/// A button to create.
struct ListButton {
    QString name, caption;
};
/// Creates buttons in a window that is laid out: in the line of btn_戻る, or, if they do not fit, in an additional line
/// above it with the last button above btn_戻る. In the tab order they come before btn_戻る.
void AddListButtons(Form& form, const QList<ListButton>& buttons);
/// Creates title ("itm_ttl_" + name), number (name) and combo box (name + "名称") of a class on a line of the head,
/// from `left` to `left + width`.
void MakeClassItems(Form& form, const QString& name, const QString& title, int left, int line, int width);
/// Sets the tab order to that of the names; controls not named follow in the order of their creation.
void NumberStops(Form& form, const QStringList& names);

/// Lays out a master list window after BuildListFrame; with `hasStatus` also creates 稼動状況区分 and btn_画面クリア.
void BuildMasterItems(Form& form, const ListWindowDefinition& definition, bool hasStatus);
