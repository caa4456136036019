#pragma once

#include <functional>

#include "inquiry/InquiryTest.h"
#include "inquiry/StaffQuery.h"
#include "support/StaffDatabase.h"

/// Searches in a temporary database, without a launching staff member.
class StaffSearchTest : public InquiryTest {
  protected:
    void SetUp() override { database.OpenConnections(); }

    void Search() {
        ResetRowStore();
        RunStaffSearch();
    }

    QString Cell(StaffText field, int row = 0) const { return Rows().Text(field, row); }

    /// One field of all found rows.
    QStringList Found(StaffText field = StaffText::担当者コード) const {
        QStringList texts;
        for (int row = 0; row <= Globals().LastRow; ++row) texts << Rows().Text(field, row);
        return texts;
    }

    StaffDatabase database;
};

/// While it exists, runs a callback as soon as the row loop processes events.
class WhenEventsPass : public QObject {
  public:
    explicit WhenEventsPass(std::function<void()> callback) {
        QMetaObject::invokeMethod(this, std::move(callback), Qt::QueuedConnection);
    }
};
