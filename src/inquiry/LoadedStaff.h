#pragma once

#include <QHash>
#include <array>
#include <memory>

#include "data/EraDates.h"
#include "database/Database.h"
#include "globals/StaffRowStore.h"

/// 閲覧区分 of the last entry that the launching staff member has in the viewing log (T閲覧) with these values in the
/// columns of the same names; -1 without an entry or if the query fails, -2 if the launching staff member is unknown.
int GetLastViewKind(const QString& 閲覧情報, const QString& 伝票事業所コード, const QString& 伝票番号基準日付,
                    const QString& 伝票No, const QString& キー項目);

/// What a search reads once instead of once for each row: the era table, and the launching staff member's entries in
/// the viewing log. Each has the same result as the statements for one row. What it does not cover is read row by row.
class StaffLookups {
  public:
    /// Covers nothing, for a single row.
    StaffLookups() = default;
    /// Reads both. A failed read is not recorded and covers nothing: the statements for the rows record it.
    static StaffLookups Read();

    const EraCalendar& Eras() const { return eras_; }
    /// 閲覧区分 of the last entry for that staff member, as GetLastViewKind returns it.
    qint16 LastViewKind(const QString& staffCode) const;

  private:
    void ReadViews();

    EraCalendar eras_;
    QHash<QString, qint16> views_;  ///< 閲覧区分 of the last entry by staff code
    bool coversViews_ = false;
};

/// The rows of one staff statement.
class LoadedStaff : public StaffRows {
  public:
    /// `firstNumber`: 行No of the first row.
    LoadedStaff(database::ResultRows rows, int firstNumber, StaffLookups lookups)
        : rows_(std::move(rows)), firstNumber_(firstNumber), lookups_(std::move(lookups)) {}

    int Count() const { return rows_.Count(); }
    /// Checks a row and reads what its texts need from the database. To be called once, before Text(); runs statements
    /// for dates that the lookups do not cover. Throws platform::RuntimeError if 住所B is Null and 住所A is not, or if
    /// a column is missing.
    void Prepare(int row);
    /// 閲覧区分 of a prepared row.
    qint16 LastViewKind(int row) const;

    QString Text(StaffText field, int row) const override;

  private:
    /// Both forms of a date that the lookups do not cover.
    struct EraTexts {
        QString longForm, shortForm;
    };
    void FindColumns();
    void PrepareDate(int row, StaffText stored);
    QString Stored(StaffText field, int row) const;
    /// The field of a date for the screen.
    QString DatePart(StaffText field, int row) const;
    EraTexts TextsOf(const QString& date) const;

    database::ResultRows rows_;
    int firstNumber_;
    StaffLookups lookups_;
    std::array<int, kStaffTextCount> columns_{};  ///< of the result, by StaffText
    bool columnsFound_ = false;
    QHash<QString, EraTexts> eraTexts_;  ///< by date
};
