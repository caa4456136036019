#pragma once

#include <gtest/gtest.h>

#include <QHash>
#include <QString>
#include <QStringList>

#include "globals/ProgramGlobals.h"
#include "inquiry/ConditionProcedures.h"
#include "inquiry/SearchConditions.h"
#include "support/HeadForm.h"
#include "support/TestServices.h"

/// The inquiry with a fake main form, initial conditions, eight rows per page and all offices.
class InquiryTest : public ::testing::Test {
  protected:
    InquiryTest() {
        Globals().MainForm = &form;
        Globals().RowsPerPage = 8;
        Globals().ScopeOfficeCode = QStringLiteral("000");
        Globals().ProgramId = QStringLiteral("要員名簿照会");
        SetInitialConditions();
    }

    InquiryConditions& Conditions() const { return Globals().Conditions; }
    StaffRowStore& Rows() const { return Globals().Rows; }

    TestServices services;
    HeadForm form;
};

/// Fake selection window with the given values: codes as equalities, texts as LIKE terms.
class FakeSelection : public SelectionSource {
  public:
    FakeSelection(QString window, QStringList values, bool texts, QString joiner = QStringLiteral(" OR "))
        : window_(std::move(window)), values_(std::move(values)), texts_(texts), joiner_(std::move(joiner)) {
        Globals().SelectionWindows.insert(window_, this);
    }
    ~FakeSelection() override { Globals().SelectionWindows.remove(window_); }
    FakeSelection(const FakeSelection&) = delete;
    FakeSelection& operator=(const FakeSelection&) = delete;

    QString BuildSelectionCondition(const QString& table, const QString& column) const override {
        const QString before = texts_ ? QStringLiteral(" LIKE '%") : QStringLiteral(" = '");
        const QString after = texts_ ? QStringLiteral("%'") : QStringLiteral("'");
        QStringList terms;
        for (const QString& value : values_) terms << table + u'.' + column + before + value + after;
        return u'(' + terms.join(joiner_) + u')';
    }
    QString DescribeSelection() const override { return values_.join(u','); }

  private:
    QString window_;
    QStringList values_;
    bool texts_;
    QString joiner_;
};
