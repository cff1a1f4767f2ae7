/// The words of SEG-Y data as a list of header words.
#include "sources/segywords.h"

#include <gtest/gtest.h>

TEST(SegyWords, TheStandardWordsAreThere)
{
    const HeaderWords& words = segyWords();
    EXPECT_EQ(words.count(), 60);
    EXPECT_EQ(words.name(WordFrom0(14)), "CDP     ");
    const HeaderWordInfo offset = words.word("OFFSET  ");
    EXPECT_EQ(offset.index, WordFrom0(1));
    EXPECT_EQ(offset.format, Float4Format);
    EXPECT_EQ(offset.length, 1);
    EXPECT_EQ(offset.exists, 1);
    EXPECT_EQ(offset.description, "Signed source-receiver offset");
}

TEST(SegyWords, AnUnknownNameHasThePlaceOfChanButDoesNotExist)
{
    const HeaderWordInfo none = segyWords().word("NONE    ");
    EXPECT_EQ(none.index, WordFrom0(0));
    EXPECT_EQ(none.exists, 0);
    EXPECT_EQ(none.format, Integer4Format);
    EXPECT_EQ(segyWords().exists("CDP"), 0) << "the blanks are part of the name";
}

TEST(SegyWords, PositionsOutsideHaveNoName)
{
    EXPECT_EQ(segyWords().name(WordFrom0(60)), "");
    EXPECT_EQ(segyWords().name(WordFrom0()), "");
}
