#include "access/ProgramLinks.h"
#include "access/StartUp.h"
#include "faults/FaultFixture.h"
#include "inquiry/StaffQuery.h"
#include "support/LinkAnswers.h"

using namespace Qt::StringLiterals;

namespace {

const QString kKey = u"00000001"_s;
const QString kNow = u"20261121 093015"_s;  // the test clock's time

/// The registration program, whose disk has no faults, changes the staff member's name.
class ExchangeUnderFaults : public FaultTest {
  protected:
    ExchangeUnderFaults() {
        KeepAsBeginning();
        services.processes.started = [this](const RecordingProcesses::Start& start) {
            const OnAnotherMachine well;
            startMessages_ = LinkRows(installation.Configuration()).size();
            installation.Configuration().Execute(u"DELETE FROM プログラム連携情報"_s);
            installation.General().Execute(u"UPDATE M担当者 SET 氏名 = '山田　次郎' WHERE コード = '00001'"_s);
            AddLinkRow(installation.Configuration(), {.sentAt = kNow, .key = start.arguments});
        };
        // The wait has no timeout, so the fault ends after some iterations.
        services.clock.sleeping = [this](int) {
            if (++sleeps_ == 20) FaultyDisk::Repair();
        };
    }

    void Work() override {
        sleeps_ = 0;
        startMessages_ = 0;
        opened_ = enabled_ = false;
        OpenConnections();
        opened_ = true;
        ClearRow(0);
        Globals().LastRow = 0;
        Globals().Rows.SetText(StaffText::担当者コード, 0, u"00001"_s);
        LaunchStaffRegistration(0);
        enabled_ = form.Enabled();
    }
    void CheckBehindFault(bool untold) override {
        EXPECT_TRUE(enabled_ || !services.dialogs.shown.isEmpty() || !opened_) << "nothing was told";
        if (untold) CheckBehindNextWork();
    }
    void CheckBehindNextWork() override {
        EXPECT_EQ(Globals().Rows.Text(StaffText::担当者名, 0), u"山田　次郎"_s);
        EXPECT_EQ(LinkRows(installation.Configuration()), QList<QStringList>());
        EXPECT_GE(startMessages_, 1);  // that of a failed exchange stays until it is purged
        EXPECT_TRUE(enabled_);
    }

    int sleeps_ = 0;
    bool opened_ = false, enabled_ = false;
    qsizetype startMessages_ = 0;
};

/// The menu has started this program, which receives the start message and answers at its end.
class AnswerUnderFaults : public FaultTest {
  protected:
    AnswerUnderFaults() { KeepAsBeginning(); }

    void Work() override {
        {
            const OnAnotherMachine well;
            installation.Configuration().Execute(u"DELETE FROM プログラム連携情報"_s);
            AddLinkRow(
                installation.Configuration(),
                {.sentAt = kNow, .sender = u"販路推進"_s, .receiver = u"要員名簿照会"_s, .kind = u"00"_s, .key = kKey});
        }
        Globals().LinkStartInfo.clear();
        OpenConnections();
        ReceiveStartLink(kKey, kNow);
        TerminateData();
    }
    void CheckBehindFault(bool untold) override {
        if (untold) CheckBehindNextWork();
    }
    void CheckBehindNextWork() override {
        EXPECT_EQ(LinkRows(installation.Configuration()),
                  (QList<QStringList>{{kNow, u"販路推進"_s, u"要員名簿照会"_s, kNow, u"99"_s, kKey, u""_s, u"000"_s,
                                       u"00001"_s, u"tester"_s}}));
    }
};

}  // namespace

TEST_F(ExchangeUnderFaults, OneFaultOfTheDiskIsToldOrTheRowIsReadAgain) { EXPECT_GT(FailOnce(), 15); }

TEST_F(ExchangeUnderFaults, WaitEndsOnceTheBrokenDiskIsMended) { EXPECT_GT(FailFromThenOn("usrcnfg"), 15); }

TEST_F(ExchangeUnderFaults, LackOfMemoryIsToldOrTheRowIsReadAgain) { EXPECT_GT(RunOutOfMemory(), 300); }

TEST_F(AnswerUnderFaults, OneFaultOfTheDiskIsToldOrTheAnswerIsThere) { EXPECT_GT(FailOnce(), 15); }

TEST_F(AnswerUnderFaults, BrokenDiskHarmsNoOtherMessageAndTheNextRunAnswers) {
    EXPECT_GT(FailFromThenOn("usrcnfg"), 15);
}

TEST_F(AnswerUnderFaults, LackOfMemoryIsToldOrTheAnswerIsThere) { EXPECT_GT(RunOutOfMemory(), 300); }
