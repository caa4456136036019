#pragma once

#include "mainform/MainFormFixture.h"

/// The main form with somebody who searches by selections, and what a query past the adapter finds.
class SelectionTest : public MainFormTest {
  protected:
    /// The whole statement of a search: what stands behind the condition that every search begins with.
    static QString WholeStatement(const QString& behind);
    /// The same as its row in the history tells it, quotes doubled.
    static QString HistoryRow(const QString& behind);
    /// The whole statement of a search of those on the payroll by department: conditions on codes, and on texts.
    static QString Statement(const QString& codes, const QString& texts = {});
    /// Codes of the rows that the last search found, sorted.
    static QStringList Found();
    /// Codes of the staff on the payroll that meet a condition of the engine's own, sorted.
    QStringList Staff(const QString& condition) const;
    /// Searches by the button and tells how many rows エラー that has left in the history.
    int FailuresOfSearch();
};
