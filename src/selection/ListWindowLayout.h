#pragma once

#include <QList>
#include <QRect>
#include <QString>
#include <QStringList>

class Button;
class Control;
class Form;
struct ListWindowDefinition;

// The looks of the list windows. From top to bottom: the title, a head of some lines, the list, a line of buttons with
// btn_戻る at its right end. Places are pixels.

/// The controls that every list window has. ArrangeListFrame puts them into their places.
void BuildListFrame(Form& form, const ListWindowDefinition& definition);
/// Lays the window out around a head of so many pixels and a list of so many rows; fixes its size.
void ArrangeListFrame(Form& form, const ListWindowDefinition& definition, int headHeight, int visibleRows);

/// Place on a line of the head, counted from 0; left and width as they are.
QRect HeadPlace(int left, int line, int width);
/// Height of a head of so many lines.
int HeadHeight(int lines);
/// Where the head's items begin, and the list below them.
inline constexpr int kListLeft = 10;

Button& MakeListButton(Form& form, const QString& name, const QString& caption);
/// Puts buttons into the line below the list, from the left.
void PlaceBelowList(Form& form, const QStringList& buttons);
struct ListButton {
    QString name, caption;
};
/// Adds buttons to a window that is laid out: into the line below the list, or, where they find no room beside
/// btn_戻る, into a line of their own, the last one above btn_戻る. The Tab key stops on them before btn_戻る.
void AddListButtons(Form& form, const QList<ListButton>& buttons);
/// A class number with its title in front and its list behind, from `left` to `left + width`.
void MakeClassItems(Form& form, const QString& name, const QString& title, int left, int line, int width);
/// Numbers the stops of the Tab key in the order given; what is not named comes behind.
void NumberStops(Form& form, const QStringList& names);

/// What the windows over the masters have besides, and their places.
void BuildMasterItems(Form& form, const ListWindowDefinition& definition, bool hasStatus);
