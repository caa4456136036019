#pragma once

#include <QString>
#include <QStringList>
#include <array>

#include "globals/InquiryRecords.h"
#include "screen/InputItem.h"

// Descriptors of the search conditions in the head of the main form. Everything that more than one place must know
// about a condition is here, once. Painting, focus, statement, selection text, start command and layout keep only their
// order, where it differs from the order here, which is the screen's.

/// Interface of a selection window (multi-select or value window) to the query and the printed selection text.
class SelectionSource {
  public:
    virtual ~SelectionSource() = default;
    /// A condition on table.column in brackets, such as "(M担当者.部門コード = '010')"; empty without a selection.
    virtual QString BuildSelectionCondition(const QString& table, const QString& column) const = 0;
    /// Description of the selection for the printed selection text; empty without one.
    virtual QString DescribeSelection() const = 0;
};

/// The window whose selection replaces the head's items of a condition while the flag is set.
struct ConditionSelection {
    bool ConditionFlags::*flag;  ///< set while the window contains a selection
    QString window;              ///< name of the form
    QString button;              ///< on the main form, opens the window
    QString caption;             ///< of the button
};
/// The loaded window, hidden or not; nullptr if there is none.
const SelectionSource* SourceOf(const ConditionSelection& selection);

enum class Range { Department, Section, Position, Staff };
inline constexpr size_t kRangeCount = 4;

/// A range of codes of a master.
struct RangeCondition {
    Range id;
    QString InquiryConditions::*from;
    QString InquiryConditions::*to;
    QString fromItem, toItem;  ///< on the main form
    QString mask;              ///< "0" for each digit of a code
    int maxValue;              ///< of the items; reported by them, not checked
    QString column;            ///< of M担当者
    QString master;            ///< table of the codes
    QString nameColumn;        ///< of the master
    QString lookup;            ///< list window that returns one code
    QString label;             ///< of the range in the selection text
    QString selectionLabel;    ///< of selected codes in the selection text
    ConditionSelection selection;
};
const std::array<RangeCondition, kRangeCount>& RangeConditions();
const RangeCondition& ConditionOf(Range id);

enum class SearchText { Name, Kana, Address, Phone, Zip };
inline constexpr size_t kSearchTextCount = 5;

/// A text that a column must contain.
struct TextCondition {
    SearchText id;
    QString InquiryConditions::*field;
    QString item;         ///< on the main form
    int width;            ///< of the item, pixels
    ItemDesign design;    ///< of the item
    bool cut;             ///< cut to MaxLength bytes of code page 932 when stored
    bool fullWidth;       ///< the column contains full-width characters
    QStringList columns;  ///< of M担当者; one of them must contain the text
    QString valueItem;    ///< item of each row of the value window; also names the value in captions and selection text
    ItemDesign valueDesign;  ///< of that item
    ConditionSelection selection;
};
const std::array<TextCondition, kSearchTextCount>& TextConditions();
const TextCondition& ConditionOf(SearchText id);

enum class Kind { Enrolment, StaffClass, DisplayOrder };
inline constexpr size_t kKindCount = 3;

/// A class (区分): a number, and a combo box with the name of each number.
struct KindCondition {
    Kind id;
    int InquiryConditions::*field;
    QString item, listItem;  ///< on the main form
    int startValue;          ///< default at start
    QString column;          ///< of M担当者; empty if the class is no condition
    QString classTable;      ///< table of the list's entries; empty if they are fixed
};
const std::array<KindCondition, kKindCount>& KindConditions();
const KindCondition& ConditionOf(Kind id);

/// An entry of the list of 表示順区分.
struct DisplayOrder {
    QString entry;    ///< text in the list
    QString columns;  ///< of M担当者, as in ORDER BY
};
/// Indexed by the value of 表示順区分.
const QList<DisplayOrder>& DisplayOrders();
