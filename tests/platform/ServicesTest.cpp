#include <gtest/gtest.h>

#include "support/TestServices.h"

using namespace Qt::StringLiterals;

TEST(TestServices, UserNameIsWrittenWithItsNulOverTheBuffer) {
    TestServices services;
    services.system.userName = u"山田"_s;
    QString buffer(255, u' ');
    platform::Services().system->ReadUserName(buffer);
    EXPECT_EQ(buffer.size(), 255);
    EXPECT_EQ(buffer.left(4), u"山田\0 "_s);
}
