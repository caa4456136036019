#include "faults/FaultFixture.h"
#include "registration/StaffStore.h"

using namespace Qt::StringLiterals;

namespace {

/// The registration program saves a person, then saves again from the record read before, which is outdated.
class SaveUnderFaults : public FaultTest {
  protected:
    SaveUnderFaults() {
        installation.General().Execute(u"DELETE FROM T閲覧"_s);
        KeepAsBeginning();
    }

    void Work() override {
        saved_ = StoreOutcome::Failed;
        OpenConnections();
        StaffStore store;
        StaffRecord before;
        if (!store.Open() || store.Load(u"00001"_s, before) != StoreOutcome::Done) return;
        StaffValues entered = before.values;
        entered[0] = entered[0] == u"新"_s ? u"旧"_s : u"新"_s;
        entered_ = entered[0];
        saved_ = store.Save(before, entered);
        again_ = store.Save(before, entered);
        const OnAnotherMachine well;
        installation.General().Execute(u"UPDATE M担当者 SET 氏名 = 氏名 WHERE コード = '00002'"_s);
    }
    void CheckBehindFault(bool untold) override {
        const bool there = Item() == entered_;
        EXPECT_TRUE(there || (!untold && saved_ != StoreOutcome::Done));
        EXPECT_TRUE(!untold || again_ == StoreOutcome::Changed);
        EXPECT_EQ(Views() > 0, there) << "the save and its row in the log stand and fall together";
    }
    void CheckBehindNextWork() override {
        EXPECT_EQ(saved_, StoreOutcome::Done);
        EXPECT_EQ(again_, StoreOutcome::Changed);
        EXPECT_EQ(Item(), entered_);
    }

    QString Item() const {
        return installation.General().Value(
            u"SELECT %1 FROM M担当者 WHERE コード = '00001'"_s.arg(kStaffItems[0].column.toString()));
    }
    int Views() const { return installation.General().Value(u"SELECT COUNT(*) FROM T閲覧"_s).toInt(); }

    StoreOutcome saved_ = StoreOutcome::Failed, again_ = StoreOutcome::Failed;
    QString entered_;
};

}  // namespace

TEST_F(SaveUnderFaults, OneFaultOfTheDiskIsToldAndLocksNobodyOut) { EXPECT_GT(FailOnce(), 15); }

TEST_F(SaveUnderFaults, WhatABrokenDiskTookBackIsNotToldAsSaved) { EXPECT_GT(FailFromThenOn("gnrdb"), 15); }

TEST_F(SaveUnderFaults, LackOfMemoryIsToldAndLocksNobodyOut) { EXPECT_GT(RunOutOfMemory(), 300); }
