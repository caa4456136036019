#include "data/RunHistory.h"
#include "faults/FaultFixture.h"
#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

/// Writes three history rows; the second one extends over several pages.
class HistoryRowUnderFaults : public FaultTest {
  protected:
    HistoryRowUnderFaults() { KeepAsBeginning(); }

    void Work() override {
        done_.clear();
        OpenConnections();
        for (const QString& text : {u"一"_s, QString(9000, u'二'), u"三"_s}) {
            try {
                InsertHistoryRow(text);
                done_ << text;
            } catch (const platform::RuntimeError&) {
                failed_ << text;
            }
        }
    }
    void CheckBehindFault(bool /*untold*/) override {
        const QStringList rows = installation.HistoryTexts();
        for (const QString& text : done_) EXPECT_EQ(rows.count(text), 1) << text.left(5).toStdString();
        for (const QString& text : failed_) EXPECT_LE(rows.count(text), 1) << text.left(5).toStdString();
        failed_.clear();
        before_ = rows;
    }
    void CheckBehindNextWork() override {
        EXPECT_EQ(installation.HistoryTexts(), before_ + done_);
        EXPECT_EQ(done_.size(), 3);
        EXPECT_EQ(failed_, QStringList());
    }

    QStringList done_, failed_, before_;
};

}  // namespace

TEST_F(HistoryRowUnderFaults, EachRowToldAsWrittenIsThereOnceAfterOneFaultOfTheDisk) { EXPECT_GT(FailOnce(), 15); }

TEST_F(HistoryRowUnderFaults, EachRowToldAsWrittenIsThereOnceOnABrokenDisk) {
    EXPECT_GT(FailFromThenOn("usrcnfg"), 15);
}

TEST_F(HistoryRowUnderFaults, EachRowToldAsWrittenIsThereOnceWhenMemoryRanOut) { EXPECT_GT(RunOutOfMemory(), 300); }
