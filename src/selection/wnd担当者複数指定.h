#pragma once

#include <QStringList>

#include "inquiry/SearchConditions.h"
#include "screen/Form.h"

/// Rows of a value window.
inline constexpr int kValueRows = 10;

/// Up to ten values in place of one search text of the head; one class for the five windows of names, kana, addresses,
/// telephones and postal codes. The entries exist only in the window; the main form knows the window's flag, which is
/// set when the window closes. Allocate with new; hidden until it is unloaded.
class wnd担当者複数指定 : public Form, public SelectionSource {
  public:
    explicit wnd担当者複数指定(const TextCondition& condition);
    ~wnd担当者複数指定() override;

    /// One LIKE term for each filled row, quotes escaped, wildcards kept; joined by OR, or by AND if 絞込み is checked.
    QString BuildSelectionCondition(const QString& table, const QString& column) const override;
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

/// Creates the controls of a value window in tab order (…Layout.cpp), sets the window's caption, flags and fixed size.
void BuildValueWindow(Form& form, const TextCondition& condition);
