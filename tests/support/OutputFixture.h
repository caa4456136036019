#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <functional>

#include "data/DataFixture.h"
#include "inquiry/ConditionProcedures.h"
#include "support/HeadForm.h"
#include "inquiry/SelectionSource.h"
#include "output/ReportDatabase.h"

/// Rows in the list, the conditions of a start in a head without a window, and an empty report database, all three
/// connections to be had.
class OutputTest : public WithConnections {
  protected:
    OutputTest();
    ~OutputTest() override;

    /// Appends a row to the list. Fields that are not given are empty.
    int AddRow(const QHash<StaffText, QString>& fields, bool marked = true);
    /// `count` rows with codes 00001 and up, all marked.
    void AddRows(int count);
    void AddEras() const;
    /// All rows of a work table, each "column=value" for every column that is not Null.
    QList<QStringList> WorkRows(const QString& table) const;
    /// One column of a work table in the order of writing; "(null)" for a Null.
    QStringList WorkColumn(const QString& column, const QString& table = QStringLiteral("要員名簿照会")) const;
    QStringList ErrorRows() const { return History().filter(QStringLiteral("エラー ")); }

    HeadForm form;
};

inline size_t qHash(StaffText field, size_t seed = 0) { return ::qHash(static_cast<int>(field), seed); }

/// A selection window that tells something, and how often it was asked.
class TellingSelection : public SelectionSource {
  public:
    TellingSelection(QString window, QString words);
    ~TellingSelection() override;
    QString BuildSelectionCondition(const QString&, const QString&) const override { return {}; }
    QString DescribeSelection() const override {
        ++asked;
        if (whenAsked) whenAsked();
        return words_;
    }
    mutable int asked = 0;
    std::function<void()> whenAsked;

  private:
    QString window_, words_;
};
