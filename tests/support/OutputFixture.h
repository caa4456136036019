#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <functional>

#include "data/DataFixture.h"
#include "inquiry/ConditionProcedures.h"
#include "inquiry/SearchConditions.h"
#include "output/ReportDatabase.h"
#include "support/HeadForm.h"

/// Rows in the list, initial conditions in a fake main form, and an empty report database; all three connections can be
/// opened.
class OutputTest : public WithConnections {
  protected:
    OutputTest();
    ~OutputTest() override;

    /// Appends a row to the list; fields not given are empty.
    int AddRow(const QHash<StaffText, QString>& fields, bool marked = true);
    /// Appends `count` rows with codes from 00001, all checked for output.
    void AddRows(int count);
    void AddEras() const;
    /// All rows of a work table as "column=value" for each column that is not Null.
    QList<QStringList> WorkRows(const QString& table) const;
    /// One column of a work table, oldest row first; "(null)" for a Null.
    QStringList WorkColumn(const QString& column, const QString& table = QStringLiteral("要員名簿照会")) const;
    QStringList ErrorRows() const { return History().filter(QStringLiteral("エラー ")); }

    HeadForm form;
};

inline size_t qHash(StaffText field, size_t seed = 0) { return ::qHash(static_cast<int>(field), seed); }

/// Fake selection window that counts the calls.
class DescribedSelection : public SelectionSource {
  public:
    DescribedSelection(QString window, QString words);
    ~DescribedSelection() override;
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
