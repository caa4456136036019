#include "platform/EndRequest.h"

#include <gtest/gtest.h>

using namespace platform;

TEST(EndRequests, AreHandledOnceAndAreThenOver) {
    int ends = 0;
    SetEndHandler([&] { ++ends; });
    CarryOutEndRequest();
    EXPECT_EQ(ends, 0) << "nothing was requested";
    RequestEnd();
    EXPECT_TRUE(EndRequested());
    CarryOutEndRequest();
    EXPECT_FALSE(EndRequested());
    CarryOutEndRequest();
    EXPECT_EQ(ends, 1);
    SetEndHandler({});
}

TEST(EndRequests, AreNotHandledAgainWhileTheProgramEnds) {
    int ends = 0;
    SetEndHandler([&] {
        if (++ends < 3) CarryOutEndRequest();
    });
    RequestEnd();
    CarryOutEndRequest();
    EXPECT_EQ(ends, 1);
    SetEndHandler({});
}

TEST(EndRequests, WaitForTheOutermostOfNestedEndings) {
    RequestEnd();
    {
        const Ending outer;
        { const Ending inner; }
        EXPECT_FALSE(EndRequested());
    }
    EXPECT_TRUE(EndRequested());
    CarryOutEndRequest();
    EXPECT_FALSE(EndRequested());
}
