#pragma once

#include "support/MainFormFixture.h"

/// The main form for searches by selections, with reference queries that bypass the SQL adapter.
class SelectionTest : public MainFormTest {
  protected:
    /// The statement of a search; `suffix` is the text after the condition that every search begins with.
    static QString WholeStatement(const QString& suffix);
    /// The same as a history row, with doubled quotes.
    static QString HistoryRow(const QString& suffix);
    /// The statement of a search for enrolled staff in department order, with conditions on codes and texts.
    static QString Statement(const QString& codes, const QString& texts = {});
    /// Codes found by the last search, sorted.
    static QStringList Found();
    /// Codes of the enrolled staff that match an SQLite condition, sorted.
    QStringList Staff(const QString& condition) const;
    /// Searches by the button and returns the number of new rows エラー in the history.
    int FailuresOfSearch();
};
