#pragma once

#include <QList>
#include <QString>

/// A column of a list window: the field of the query that it shows, under its title, so many twips wide.
struct ListColumn {
    QString title;
    int width;
    QString field;
};

/// What the user can do with the rows of a list window.
enum class ListUse {
    Lookup,  ///< Enter or a click brings one code back to the caller
};

/// What tells the list windows apart.
struct ListWindowDefinition {
    QString name;     ///< of the form
    QString caption;  ///< in the window's frame
    QString title;    ///< at the top of the window
    QString list;     ///< name of the list control
    QList<ListColumn> columns;
    ListUse use = ListUse::Lookup;
    /// Lookups: in a program whose main form bears this word the window is unloaded when it closes, since that program
    /// changes the rows it shows. Elsewhere it is hidden and keeps them.
    QString unloadWord;
};
