#pragma once

#include <QHash>
#include <QString>
#include <memory>
#include <stdexcept>
#include <vector>

#include "globals/InquiryRecords.h"

/// One field of all rows: kCount values, allocated at the first non-const access. Before that all values are empty or
/// 0.
template <typename Value, size_t kCount>
class RowArray {
  public:
    // All four throw std::out_of_range if `row` is not below kCount.

    Value& at(size_t row) {
        if (values_.empty()) values_.resize(kCount);
        return values_.at(row);
    }
    const Value& at(size_t row) const {
        static const Value empty{};
        if (row >= kCount) throw std::out_of_range("RowArray");
        return values_.empty() ? empty : values_[row];
    }
    Value& operator[](size_t row) { return at(row); }
    const Value& operator[](size_t row) const { return at(row); }

  private:
    std::vector<Value> values_;
};

/// The staff rows of one query, which rows of the store refer to. Texts are made when they are read: of thousands of
/// rows only a few are ever shown.
class StaffRows {
  public:
    virtual ~StaffRows() = default;
    /// Text of a field of a row of the query (from 0).
    virtual QString Text(StaffText field, int row) const = 0;
};

/// The result of a search. Rows after ProgramGlobals::LastRow are empty, on which painting relies. Its size is fixed,
/// so that access to a row does not allocate; memory is allocated at the first search, so that a program without a list
/// needs none. A row of the store refers to a row of a query, and the mail address to one of its own, since CopyRow
/// leaves it where it is. Members that take a row throw std::out_of_range if it is negative or not below kRows.
class StaffRowStore {
  public:
    static constexpr int kRows = 32761;            ///< indices 0 to 32760
    static constexpr int kLastClearedRow = 32759;  ///< the last row exists as a bound only

    RowArray<qint16, kRows> 出力対象;  ///< 1: the row is checked for output
    RowArray<qint16, kRows> 閲覧区分;  ///< result of GetLastViewKind
    RowArray<qint16, kRows> rowFlag;   ///< only reset and copied

    QString Text(StaffText field, int row) const;
    /// Overrides the text of a field until the row is cleared or loaded.
    void SetText(StaffText field, int row, const QString& text);

    /// Takes all texts of the row from row `queryRow` of the query.
    void LoadTexts(int row, const std::shared_ptr<const StaffRows>& query, int queryRow);
    void ClearTexts(int row);
    /// Copies all texts but the mail address, which the target keeps.
    void CopyTexts(int source, int target);
    /// Frees the queries that no row refers to any more. To be called when all rows are cleared.
    void ReleaseQueries();

  private:
    struct Place {
        int query = 0;  ///< index in queries_ plus 1; 0: no row, all texts are empty
        int row = 0;
    };
    struct Places {
        Place row, mail;
    };
    Places& PlacesOf(int row) { return places_.at(static_cast<size_t>(row)); }
    const Places& PlacesOf(int row) const { return places_.at(static_cast<size_t>(row)); }
    static int Key(StaffText field, int row) { return row * kStaffTextCount + static_cast<int>(field); }

    RowArray<Places, kRows> places_;
    std::vector<std::shared_ptr<const StaffRows>> queries_;
    QHash<int, QString> written_;  ///< by Key()
};
