/// The three sources of header names: the window's table, a dataset's list, the flow's list.
#include "host/dataset/hdr.h"
#include "host/flow/standardwords.h"
#include "host/flow/stheader.h"
#include "tracedata/headertable.h"
#include "tracedata/seismicheader.h"

#include <gtest/gtest.h>

TEST(HeaderSources, TheFlowsListAnswersWhenNothingElseIsThere)
{
    stHdrClear();
    stHdrAddStd("CHAN    ");
    stHdrAdd("PANL_VEL", "Velocity of the panel", 1, Float4Format);
    SeismicHeader header(nullptr, 0);
    EXPECT_EQ(header.headerIndex("CHAN    "), 0);
    EXPECT_EQ(header.headerIndex("PANL_VEL"), 1);
    EXPECT_EQ(header.headerFormat("PANL_VEL"), Float4Format);
    EXPECT_STREQ(header.headerDesc("CHAN    "), "Recording channel number");
    EXPECT_STREQ(header.headerIndexName(1), "PANL_VEL");
    EXPECT_EQ(header.headerIndex("NONE    "), -1);
    EXPECT_EQ(header.headerExists("NONE    "), 0);
    stHdrClear();
}

TEST(HeaderSources, ADatasetsListAnswersByItsHandle)
{
    const int handle = hdr_setup_();
    SeismicHeader header(nullptr, 0);
    header.setTreviaVersion(handle);
    EXPECT_EQ(header.headerAddStd("OFFSET  "), 0);
    EXPECT_EQ(header.headerAddStd("CDP     "), 0);
    EXPECT_EQ(header.headerIndex("CDP     "), 1);  // the host counts from 1, we from 0
    EXPECT_EQ(header.headerExists("CDP     "), 1);
    EXPECT_STREQ(header.headerIndexName(0), "OFFSET  ");
    EXPECT_EQ(header.headerIndex("NONE    "), -1);
    hdr_release_(handle);
}

TEST(HeaderSources, ASavedTableTakesPrecedenceAndWantsTheWholeName)
{
    HeaderTable table;
    table.append("CDP     ", "CDP bin number", 0, Integer4Format, 1, 1);
    table._headerSaved = true;
    SeismicHeader header(nullptr, 0, &table);
    EXPECT_EQ(header.headerIndex("CDP     "), 0);
    EXPECT_EQ(header.headerIndex("CDP"), -1);
    EXPECT_EQ(header.headerExists("FFID    "), 0);
    EXPECT_STREQ(header.headerDesc("FFID    "), "");
    EXPECT_STREQ(header.headerIndexName(0), "CDP     ");
    EXPECT_STREQ(header.headerIndexName(5), "");
}

TEST(HeaderSources, ATableThatIsNotSavedIsNotAsked)
{
    HeaderTable table;
    table.append("CDP     ", "CDP bin number", 0, Integer4Format, 1, 1);
    const SeismicHeader before(nullptr, 0, &table);
    stHdrClear();
    EXPECT_EQ(before.headerIndex("CDP     "), -1);
}
