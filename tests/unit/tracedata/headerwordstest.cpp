/// The lists of header words behind one interface: the window's table, the flow's list, a dataset's.
#include "host/dataset/hdr.h"
#include "host/flow/stheader.h"
#include "tracedata/headertable.h"
#include "tracedata/hostwords.h"
#include "tracedata/seismicheader.h"

#include <gtest/gtest.h>

namespace {

/// CHAN, a text of three cells and a float, as each list takes them.
struct FlowList {
    FlowList()
    {
        stHdrClear();
        stHdrAddStd("CHAN    ");
        stHdrAdd("parmtest", "What is tested", 3, Integer4Format);
        stHdrAdd("PANL_VEL", "Velocity of the panel", 1, Float4Format);
    }
    ~FlowList() { stHdrClear(); }
    FlowWords words;
};

struct DatasetList {
    const int handle = hdr_setup_();
    DatasetWords words{handle};
    DatasetList()
    {
        hdr_std_add_(handle, "CHAN    ");
        hdr_add_(handle, "parmtest", "What is tested", 2, 3, Integer4Format);
        hdr_add_(handle, "PANL_VEL", "Velocity of the panel", 5, 1, Float4Format);
    }
    ~DatasetList() { hdr_release_(handle); }
};

struct TableList {
    HeaderTable words;
    TableList()
    {
        const FlowList flow;
        words.fill(flow.words, 5);
    }
};

template <class List>
struct HeaderWordsTest : testing::Test {
    List list;
    const HeaderWords& words = list.words;
};
using Lists = testing::Types<FlowList, DatasetList, TableList>;
TYPED_TEST_SUITE(HeaderWordsTest, Lists);

}  // namespace

TYPED_TEST(HeaderWordsTest, AWordIsToldByItsName)
{
    const HeaderWordInfo text = this->words.word("parmtest");
    EXPECT_EQ(text.index, WordFrom0(1));
    EXPECT_EQ(text.format, Integer4Format);
    EXPECT_EQ(text.length, 3);
    EXPECT_EQ(text.exists, 1);
    EXPECT_EQ(text.description, "What is tested");
    EXPECT_EQ(this->words.index("PANL_VEL"), WordFrom0(4)) << "behind the three cells of the text";
    EXPECT_EQ(this->words.format("PANL_VEL"), Float4Format);
    EXPECT_EQ(this->words.description("CHAN    "), "Recording channel number");
}

TYPED_TEST(HeaderWordsTest, APositionHasTheNameOfTheWordThatBeginsThere)
{
    EXPECT_EQ(this->words.name(WordFrom0(0)), "CHAN    ");
    EXPECT_EQ(this->words.name(WordFrom0(4)), "PANL_VEL");
    EXPECT_EQ(this->words.exists(this->words.name(WordFrom0(2))), 0) << "inside of the text";
    EXPECT_EQ(this->words.name(WordFrom0(5)), "");
    EXPECT_EQ(this->words.name(WordFrom0()), "");
}

TYPED_TEST(HeaderWordsTest, TheCountIsThatOfAllCells)
{
    EXPECT_EQ(this->words.count(), 5);
}

TYPED_TEST(HeaderWordsTest, AnUnknownNameHasNoPlace)
{
    const HeaderWordInfo none = this->words.word("FFID    ");
    EXPECT_EQ(none.index, WordFrom0());
    EXPECT_EQ(none.exists, 0);
    EXPECT_EQ(none.format, Integer4Format);
    EXPECT_EQ(none.length, 1);
    EXPECT_EQ(none.description, "");
}

TEST(HeaderWords, AHandleThatTheHostDoesNotKnowHasNoWords)
{
    const DatasetWords words(-1);
    EXPECT_EQ(words.count(), 0);
    EXPECT_EQ(words.exists("CHAN    "), 0);
}

TEST(HeaderWords, ATableIsInForceOnceItIsFilled)
{
    HeaderTable table;
    EXPECT_FALSE(table.isInForce());
    table.fill(DatasetWords(-1), 2);
    EXPECT_TRUE(table.isInForce());
    EXPECT_EQ(table._headerName, QList<QString>({"None", "None"}));
    EXPECT_EQ(table.exists("None"), 0);
    table.clear();
    EXPECT_FALSE(table.isInForce());
    EXPECT_EQ(table.count(), 0);
}

TEST(HeaderWords, ATableFilledFromItselfStaysAsItIs)
{
    TableList list;
    list.words.fill(list.words, list.words.count());
    EXPECT_EQ(list.words.count(), 5);
    EXPECT_EQ(list.words._headerName[4], "PANL_VEL");
    EXPECT_EQ(list.words._headerExist, QList<int>({1, 1, 0, 0, 1}));
}

TEST(HeaderWords, AViewTellsTheListThatAnswersForIt)
{
    const FlowList flow;
    const DatasetList dataset;
    HeaderTable table;
    SeismicHeader view(nullptr, 0, &table);
    EXPECT_NE(dynamic_cast<const FlowWords*>(&view.headerWords()), nullptr);
    view.setTreviaVersion(dataset.handle);
    EXPECT_EQ(view.getTreviaVersion(), dataset.handle);
    ASSERT_NE(dynamic_cast<const DatasetWords*>(&view.headerWords()), nullptr);
    table.fill(flow.words, 5);
    EXPECT_NE(&view.headerWords(), &table) << "not before it is asked";
    view.checkHeaderSaved();
    EXPECT_EQ(&view.headerWords(), &table);
}
