#include "platform/FileRights.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <QTemporaryDir>

#include "support/FileBytes.h"
#include "support/GivenAway.h"

using namespace Qt::StringLiterals;

namespace {

class FileRightsTest : public testing::Test {
  protected:
    FileRightsTest() {
        WriteBytes(File(), "private");
        SetModeOf(File(), 0600);
    }
    QString File() const { return folder.filePath(u"file"_s); }

    QTemporaryDir folder;
};

}  // namespace

TEST_F(FileRightsTest, AreSetOnAFileAndOnAFolder) {
    EXPECT_TRUE(platform::SetRights(File(), platform::OwnGroupId(), 0640));
    EXPECT_EQ(ModeOf(File()), 0640U);
    EXPECT_TRUE(platform::SetRights(folder.path(), platform::OwnGroupId(), 02750));
    EXPECT_EQ(ModeOf(folder.path()), 02750U);
}

TEST_F(FileRightsTest, AreNeverSetThroughALinkOrUnderASecondName) {
    MakeLink(File(), folder.filePath(u"link"_s));
    EXPECT_FALSE(platform::SetRights(folder.filePath(u"link"_s), platform::OwnGroupId(), 0666));
    EXPECT_EQ(ModeOf(File()), 0600U);
    ASSERT_EQ(
        ::link(QFile::encodeName(File()).constData(), QFile::encodeName(folder.filePath(u"second"_s)).constData()), 0);
    EXPECT_FALSE(platform::SetRights(File(), platform::OwnGroupId(), 0666));
    EXPECT_EQ(ModeOf(File()), 0600U);
}
