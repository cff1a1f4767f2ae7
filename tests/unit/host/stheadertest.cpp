#include "host/flow/stheader.h"
#include "host/flow/standardwords.h"

#include <gtest/gtest.h>

/// Each test begins and ends with an empty list.
class StHeader : public testing::Test
{
protected:
    void SetUp() override { stHdrClear(); }
    void TearDown() override { stHdrClear(); }
};

TEST_F(StHeader, PositionsCountFromZero)
{
    EXPECT_EQ(stHdrAddStd("FFID"), 0);
    EXPECT_EQ(stHdrAdd("BIG", "a double", 2, Double8Format), 0);
    EXPECT_EQ(stHdrAddStd("CHAN    "), 0);
    EXPECT_EQ(stHdrIndex("FFID"), 0);
    EXPECT_EQ(stHdrIndex("BIG"), 1);
    EXPECT_EQ(stHdrIndex("CHAN"), 3);
    EXPECT_STREQ(stHdrIndexName(0), "FFID    ");
    EXPECT_STREQ(stHdrIndexName(1), "BIG     ");
    EXPECT_STREQ(stHdrIndexName(2), "");
    EXPECT_STREQ(stHdrIndexName(3), "CHAN    ");
}

TEST_F(StHeader, AnswersForUnknownNames)
{
    EXPECT_EQ(stHdrIndex("NONE"), -1);
    EXPECT_EQ(stHdrExists("NONE"), 0);
    EXPECT_EQ(stHdrFormat("NONE"), Integer4Format);
    EXPECT_EQ(stHdrLength("NONE"), 1);
    EXPECT_STREQ(stHdrDesc("NONE"), "");
    EXPECT_STREQ(stHdrIndexName(-1), "");
}

TEST_F(StHeader, TellsFormatLengthAndDescription)
{
    stHdrAdd("BIG", "a double", 2, Double8Format);
    stHdrAddStd("OFFSET");
    EXPECT_EQ(stHdrExists("BIG     "), 1);
    EXPECT_EQ(stHdrFormat("BIG"), Double8Format);
    EXPECT_EQ(stHdrLength("BIG"), 2);
    EXPECT_STREQ(stHdrDesc("BIG"), "a double");
    EXPECT_EQ(stHdrFormat("OFFSET"), Float4Format);
}

TEST_F(StHeader, AddingFailsForBadNamesAndLengthsOnly)
{
    EXPECT_EQ(stHdrAddStd("NONE"), 1);
    EXPECT_EQ(stHdrAdd("", "", 1, Integer4Format), 1);
    EXPECT_EQ(stHdrAdd("A", "", 0, Integer4Format), 1);
    EXPECT_EQ(stHdrAdd("A", "first", 1, Integer4Format), 0);
    EXPECT_EQ(stHdrAdd("A", "again", 3, Float4Format), 0);
    EXPECT_EQ(stHdrLength("A"), 1);
    stHdrClear();
    EXPECT_EQ(stHdrExists("A"), 0);
}
