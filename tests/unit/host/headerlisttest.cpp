#include "host/flow/headerlist.h"

#include "host/flow/standardwords.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>

TEST(HeaderList, WordsStandOneBehindTheOther)
{
    HeaderList list;
    EXPECT_TRUE(list.add("ONE", "first", 1, Integer4Format));
    EXPECT_TRUE(list.add("TWO", "second", 2, Double8Format));
    EXPECT_TRUE(list.add("THREE", "third", 1, Float4Format));
    EXPECT_EQ(list.find("ONE")->position, 0);
    EXPECT_EQ(list.find("TWO")->position, 1);
    EXPECT_EQ(list.find("THREE")->position, 3);
    EXPECT_EQ(list.totalLength(), 4);
    EXPECT_EQ(list.at(1)->description, "second");
    EXPECT_EQ(list.at(2), nullptr);  // inside TWO, where no word begins
    EXPECT_EQ(list.at(4), nullptr);
    EXPECT_EQ(list.at(-1), nullptr);
}

TEST(HeaderList, NamesArePaddedAndComparedWithoutTrailingBlanks)
{
    HeaderList list;
    list.add("CDP", "", 1, Integer4Format);
    EXPECT_EQ(list.find("CDP")->name, "CDP     ");
    EXPECT_EQ(list.find("CDP     "), list.find("CDP"));
    EXPECT_EQ(list.find("CDP          "), list.find("CDP"));
    EXPECT_EQ(list.find(" CDP"), nullptr);
    EXPECT_EQ(list.find("cdp"), nullptr);
    EXPECT_EQ(list.find("CD"), nullptr);
}

TEST(HeaderList, RefusesBadNamesAndLengths)
{
    HeaderList list;
    EXPECT_FALSE(list.add("", "", 1, Integer4Format));
    EXPECT_FALSE(list.add("    ", "", 1, Integer4Format));
    EXPECT_FALSE(list.add("NINECHARS", "", 1, Integer4Format));
    EXPECT_TRUE(list.add("EIGHTCHA", "", 1, Integer4Format));
    EXPECT_FALSE(list.add("A", "", 0, Integer4Format));
    EXPECT_FALSE(list.add("A", "", -3, Integer4Format));
    EXPECT_EQ(list.totalLength(), 1);
}

TEST(HeaderList, AWordThatExistsStaysAsItIs)
{
    HeaderList list;
    list.add("A", "old", 1, Integer4Format);
    EXPECT_TRUE(list.add("A       ", "new", 5, Float4Format));
    EXPECT_EQ(list.find("A")->description, "old");
    EXPECT_EQ(list.find("A")->length, 1);
    EXPECT_EQ(list.totalLength(), 1);
}

TEST(HeaderList, StandardWordsBringFormatAndDescription)
{
    HeaderList list;
    EXPECT_TRUE(list.addStandard("OFFSET"));
    EXPECT_EQ(list.find("OFFSET")->format, Float4Format);
    EXPECT_EQ(list.find("OFFSET")->description, "Signed source-receiver offset");
    EXPECT_FALSE(list.addStandard("NONESUCH"));
    list.clear();
    EXPECT_EQ(list.find("OFFSET"), nullptr);
    EXPECT_EQ(list.totalLength(), 0);
}

TEST(StandardWords, AreSixtyNamesOfEightCharacters)
{
    std::set<std::string> names;
    for (const StandardWord& word : standardWords) {
        EXPECT_EQ(std::strlen(word.name), 8u);
        names.insert(word.name);
    }
    EXPECT_EQ(names.size(), 60u);
    EXPECT_EQ(standardWordIndex("CHAN    "), 0);
    EXPECT_EQ(standardWordIndex("TRC_TYPE"), 30);
    EXPECT_EQ(standardWordIndex("ETA     "), 59);
    EXPECT_EQ(standardWordIndex("CHAN"), -1);  // the padding is part of the name here
}
