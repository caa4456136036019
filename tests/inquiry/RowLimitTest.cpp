#include <QThread>

#include "inquiry/StaffSearchTest.h"

using namespace Qt::StringLiterals;

namespace {
struct LimitCase {
    int rowsPerPage, matching, lastRow;
    QString message;
};
class RowLimit : public StaffSearchTest, public ::testing::WithParamInterface<LimitCase> {};
}  // namespace

TEST_P(RowLimit, HoldsOneRowMoreThanItNames) {
    database.AddManyStaff(GetParam().matching);
    Globals().RowsPerPage = GetParam().rowsPerPage;
    Conditions().DisplayOrder = 0;
    Search();
    EXPECT_EQ(Globals().LastRow, GetParam().lastRow);
    EXPECT_EQ(Cell(StaffText::担当者コード, GetParam().lastRow), QString::number(GetParam().lastRow + 1));
    EXPECT_EQ(Cell(StaffText::担当者コード, GetParam().lastRow + 1), QString());
    EXPECT_EQ(services.dialogs.Texts(), GetParam().message.isEmpty() ? QStringList() : QStringList{GetParam().message});
}

INSTANTIATE_TEST_SUITE_P(Of, RowLimit,
                         ::testing::Values(LimitCase{8, 32'753, 32'752, QString()},
                                           LimitCase{8, 32'754, 32'752, u"対象件数が32,752を超えました。"_s},
                                           LimitCase{6, 32'755, 32'754, QString()},
                                           LimitCase{6, 32'756, 32'754, u"対象件数が32,754を超えました。"_s}));

namespace {
/// Message boxes during which another program writes without waiting for a lock.
class WritingDialogs : public QueuedDialogs {
  public:
    explicit WritingDialogs(StaffDatabase& database) : database_(database) {}
    using Dialogs::ShowMessage;
    void ShowMessage(const QString& text, const QString& title) override {
        database_.General(u"UPDATE M担当者 SET 氏名 = '書けた' WHERE コード = '00001'"_s);
        QueuedDialogs::ShowMessage(text, title);
    }

  private:
    StaffDatabase& database_;
};

using OtherPrograms = StaffSearchTest;
}  // namespace

TEST_F(OtherPrograms, CanWriteWhileTheLimitMessageIsUp) {
    database.AddManyStaff(32'754);
    auto dialogs = std::make_unique<WritingDialogs>(database);
    const WritingDialogs& shown = *dialogs;
    platform::Services().dialogs = std::move(dialogs);
    Search();
    EXPECT_EQ(shown.Texts(), QStringList{u"対象件数が32,752を超えました。"_s});
    EXPECT_EQ(database.GeneralRows(u"SELECT 氏名 FROM M担当者 WHERE コード = '00001'"_s).first(),
              QStringList{u"書けた"_s});
}

TEST_F(OtherPrograms, CanWriteWhileASearchLoads) {
    database.AddManyStaff(20'000);
    if (ServerDatabase::Engine().isEmpty()) database.General(u"PRAGMA busy_timeout = 5000"_s);
    std::unique_ptr<QThread> writer(
        QThread::create([this] { database.General(u"UPDATE M担当者 SET 氏名 = '書けた' WHERE コード = '00001'"_s); }));
    const WhenEventsPass start([&] { writer->start(); });
    Search();
    ASSERT_TRUE(writer->wait(10'000));
    EXPECT_EQ(Globals().LastRow, 19'999);
    EXPECT_EQ(database.GeneralRows(u"SELECT 氏名 FROM M担当者 WHERE コード = '00001'"_s).first(),
              QStringList{u"書けた"_s});
}

TEST_F(OtherPrograms, WhatTheyWriteMeanwhileIsSeenByTheNextSearch) {
    database.AddStaff(u"00001"_s, {{u"生年月日"_s, u"20300101"_s}});
    Search();
    EXPECT_EQ(Cell(StaffText::生年月日年号), u"令和"_s);
    database.General(u"INSERT INTO K年号区分 VALUES ('20260101', '新元')"_s);
    Search();
    EXPECT_EQ(Cell(StaffText::生年月日年号), u"新元"_s);
}
