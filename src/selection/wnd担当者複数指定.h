#pragma once

#include <QStringList>

#include "inquiry/SelectionSource.h"
#include "screen/Form.h"
#include "selection/ValueWindowDefinitions.h"

/// Up to ten values in place of one search text of the head: the one design of the five windows for names, kana,
/// addresses, telephones and postal codes. The entries stay in the window; the main form knows only by the window's
/// flag, which is worked out when the window is closed, that there are any. Made with new, it lives hidden until it is
/// unloaded.
class wnd担当者複数指定 : public Form, public SelectionSource {
  public:
    explicit wnd担当者複数指定(const ValueWindowDefinition& definition);
    ~wnd担当者複数指定() override;

    /// One LIKE term for each filled row, joined by OR, or by AND where 絞込み is checked.
    QString BuildSelectionCondition(const QString& table, const QString& column) const override;
    QString DescribeSelection() const override;

    /// All rows empty, 絞込み unchecked. The flag stays until the window closes.
    void ClearEntries();

  private:
    void Leave();
    bool Narrowing() const;
    /// Texts of the filled rows in their order, blanks around them taken off.
    QStringList Entries() const;

    const ValueWindowDefinition& definition_;
};
