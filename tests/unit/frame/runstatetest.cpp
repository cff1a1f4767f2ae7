#include "frame/runstate.h"

#include <gtest/gtest.h>

TEST(RunState, ExitStopsTheFlow)
{
    RunState run;
    run._doExit = true;
    EXPECT_EQ(run.resetDirection(), 99);
    EXPECT_EQ(run._direction, 99);
}

TEST(RunState, ContinueFlowClosesTheWindowAndLetsTheFlowGoOn)
{
    RunState run;
    run.continueFlow();
    EXPECT_EQ(run.resetDirection(), 98);
}

TEST(RunState, ProcessFlowKeepsTheWindow)
{
    RunState run;
    run.processFlow(false);
    EXPECT_EQ(run._direction, 2);
    EXPECT_FALSE(run._doHide);
    EXPECT_EQ(run.resetDirection(), 97);
    run.processFlow(true);
    EXPECT_TRUE(run._doHide);
    EXPECT_EQ(run.resetDirection(), 97);
}

TEST(RunState, TwoQuickPressesServeTwoEnsembles)
{
    RunState run;
    run.pressNext();
    run.pressNext();
    EXPECT_EQ(run._inext, 2);
    EXPECT_EQ(run._direction, 2);
    EXPECT_TRUE(run.getMoreRecords());
    EXPECT_FALSE(run.getMoreRecords());
    EXPECT_FALSE(run.getMoreRecords());
    EXPECT_EQ(run._inext, 0);
}

TEST(RunState, PreviousIsDirectionOne)
{
    RunState run;
    run.pressPrevious();
    EXPECT_EQ(run._direction, 1);
}
