#include <optional>

#include "faults/FaultFixture.h"
#include "setup/storage/PinSealing.h"
#include "support/FileSizeLimit.h"
#include "support/SamplePins.h"

using namespace Qt::StringLiterals;

namespace {

/// An installation with PINs in clear and no key file.
class SealingUnderFaults : public FaultTest {
  protected:
    SealingUnderFaults() {
        QFile::remove(KeyFile());
        installation.General().Execute(
            u"UPDATE M担当者 SET 暗証番号 = 'STAFF1';"
            u"UPDATE Mユーザ SET 特権暗証番号 = 'COMPANY1', システム特権暗証番号 = 'SYSTEM99';"
            u"UPDATE M事業所 SET 特権暗証番号 = NULL; UPDATE M事業所 SET 特権暗証番号 = 'OFFICE01' WHERE コード = '001'"_s);
        KeepAsBeginning();
        clear_ = Stored();
    }

    QString KeyFile() const { return installation.ConfFolder() + u"/pin.key"_s; }
    QStringList Stored() const {
        QStringList texts;
        for (const QStringList& row : installation.General().Rows(
                 u"SELECT 暗証番号 FROM M担当者 UNION ALL SELECT 特権暗証番号 FROM Mユーザ"
                 u" UNION ALL SELECT システム特権暗証番号 FROM Mユーザ UNION ALL SELECT 特権暗証番号 FROM M事業所"_s))
            texts << row.first();
        return texts;
    }
    /// All PINs, decrypted with the key file.
    QStringList Opened() const {
        const SamplePins pins(installation.Root());
        QStringList opened;
        for (const QString& stored : Stored()) opened << (stored.isNull() ? stored : pins.Opened(stored));
        return opened;
    }

    void Work() override {
        const auto open = [this] { return setup::OpenFilePins(installation.General().Path()); };
        count_ = setup::SealStoredPins(open, KeyFile());
    }
    /// No PIN is lost, encrypted or not, and none is encrypted with a key that does not exist.
    void CheckBehindFault(bool untold) override {
        const bool sealed = platform::IsSealedPin(Stored().first());
        EXPECT_TRUE(sealed || !untold);
        EXPECT_TRUE(!sealed || QFile::exists(KeyFile()));
        EXPECT_TRUE(sealed || keyMayStay_ || !QFile::exists(KeyFile()));
        EXPECT_EQ(sealed ? Opened() : Stored(), clear_);
    }
    void CheckBehindNextWork() override {
        EXPECT_EQ(Opened(), clear_);
        EXPECT_EQ(count_.sealed + count_.before, 5);
        EXPECT_EQ(count_.unopenable, 0);
    }

    bool keyMayStay_ = false;  ///< unknown on a broken disk whether the key is still needed
    QStringList clear_;
    setup::SealedCount count_;
};

}  // namespace

TEST_F(SealingUnderFaults, NoPinIsLostAfterOneFaultOfTheDisk) { EXPECT_GT(FailOnce(), 15); }

TEST_F(SealingUnderFaults, NoPinIsLostOnABrokenDisk) {
    keyMayStay_ = true;
    EXPECT_GT(FailFromThenOn("gnrdb"), 15);
}

TEST_F(SealingUnderFaults, NoPinIsSealedUnderAKeyOfWhichTheDiskTookAPart) {
    constexpr int kKeyBytes = 32;
    std::optional<FileSizeLimit> full;
    Try({u"full behind some bytes of the key"_s,
         [&](int point) {
             if (point <= kKeyBytes) full.emplace(point - 1);
         },
         [&] {
             const bool wasFull = full.has_value();
             full.reset();
             return wasFull;
         }});
    EXPECT_EQ(PrintTried(), kKeyBytes);
}

TEST_F(SealingUnderFaults, NoPinIsLostWhenMemoryRanOut) { EXPECT_GT(RunOutOfMemory(), 300); }
