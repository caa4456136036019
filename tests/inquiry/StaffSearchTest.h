#pragma once

#include <functional>

#include "inquiry/InquiryTest.h"
#include "inquiry/RowStoreProcedures.h"
#include "support/StaffDatabase.h"
#include "inquiry/StaffQuery.h"

/// Searches over a database of the test's own, with nobody known as launching staff.
class StaffSearchTest : public InquiryTest {
  protected:
    void SetUp() override { database.OpenConnections(); }

    void Search() {
        ResetRowStore();
        RunStaffSearch();
    }

    QString Cell(StaffText field, int row = 0) const { return Rows().Text(field, row); }

    /// One field of all rows found.
    QStringList Found(StaffText field = StaffText::担当者コード) const {
        QStringList texts;
        for (int row = 0; row <= Globals().LastRow; ++row) texts << Rows().Text(field, row);
        return texts;
    }

    StaffDatabase database;
};

/// For its length, a piece of work that runs as soon as the row loop lets events through.
class WhenEventsPass : public QObject {
  public:
    explicit WhenEventsPass(std::function<void()> work) {
        QMetaObject::invokeMethod(this, std::move(work), Qt::QueuedConnection);
    }
};
