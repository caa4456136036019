#pragma once

#include <QStringList>

#include "inquiry/SearchConditions.h"
#include "screen/Form.h"

/// Rows of a value window.
inline constexpr int kValueRows = 10;

/// Value window: up to ten values in place of one search text of the head; one class for the five windows of names,
/// kana, addresses, telephones and postal codes. The entries exist only in the window; the main form only has the flag,
/// which is set when the window closes with an entry and cleared when it closes without one. Allocate with new. Closing
/// hides the window; it stays loaded until a clear.
class wnd担当者複数指定 : public Form, public SelectionSource {
  public:
    explicit wnd担当者複数指定(const TextCondition& condition);
    ~wnd担当者複数指定() override;

    /// One LIKE term for each filled row, quotes escaped, wildcards kept; joined by OR, or by AND if 絞込み is checked.
    QString BuildSelectionCondition(const QString& table, const QString& column) const override;
    /// "検索", the name of the value, "(絞込み)" if that is checked, and the entries separated by commas; empty without
    /// entries.
    QString DescribeSelection() const override;

    /// Empties all rows and unchecks 絞込み. The flag changes only when the window closes.
    void ClearEntries();

  private:
    void Leave();
    bool Narrowing() const;
    /// Texts of the filled rows from top to bottom, trimmed.
    QStringList Entries() const;

    const TextCondition& condition_;
};

/// Opens the value window of a search text and returns when it has closed. Created at its first use, it keeps its
/// entries. The main form stays enabled.
void OpenValueWindow(const TextCondition& text);

/// Creates the controls of a value window in tab order and sets its caption, window flags and fixed size
/// (wnd担当者複数指定Layout.cpp).
void BuildValueWindow(Form& form, const TextCondition& condition);
