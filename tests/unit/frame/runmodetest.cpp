#include "frame/runmode.h"

#include <gtest/gtest.h>

#include <vector>

static RunMode modeOf(std::vector<const char*> arguments)
{
    arguments.insert(arguments.begin(), "meridune");
    return chooseRunMode(int(arguments.size()), const_cast<char**>(arguments.data()));
}

TEST(RunMode, WithoutArgumentsItIsAPlainStartWithoutFile)
{
    EXPECT_EQ(modeOf({}).mode, DataMode::SegyFile);
    EXPECT_EQ(modeOf({}).cfile, "");
    EXPECT_EQ(modeOf({""}).cfile, "");
}

TEST(RunMode, TheFirstArgumentIsTheFile)
{
    EXPECT_EQ(modeOf({"line.sgy"}).cfile, "line.sgy");
}

TEST(RunMode, TenCharactersMakeAFlowStart)
{
    EXPECT_EQ(modeOf({"/tmp/pFile123"}).mode, DataMode::FlowTool);
    EXPECT_EQ(modeOf({"/tmp/pFile"}).mode, DataMode::FlowTool);
    EXPECT_EQ(modeOf({"/tmp/pFil"}).mode, DataMode::SegyFile);
    EXPECT_EQ(modeOf({"/tmp/pFileXYZ", "b", "c", "d"}).mode, DataMode::FlowTool);
    EXPECT_EQ(modeOf({"/tmp/pFile123"}).cfile, "");
}

TEST(RunMode, MoreThanThreeArgumentsCarryParameters)
{
    EXPECT_EQ(modeOf({"a", "b"}).mode, DataMode::SegyFile);  // three with the program's name
    EXPECT_EQ(modeOf({"a", "b", "c"}).mode, DataMode::Dataset);
    EXPECT_EQ(modeOf({"a", "b", "c"}).cfile, "");
}
