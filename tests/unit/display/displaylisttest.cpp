#include "display/displaylist.h"

#include "display/seismicdisplay.h"

#include <gtest/gtest.h>

#include <string>

/// The list keeps displays and never looks into them, so that any addresses do.
static SeismicDisplay* displayAt(int i)
{
    static char places[3];
    return reinterpret_cast<SeismicDisplay*>(&places[i]);
}

/// What a listener has heard, a word for each: "+0" for display 0 added, "-0@1" for its leaving place 1.
struct HeardList {
    DisplayList list;
    std::string heard;

    HeardList()
    {
        QObject::connect(&list, &DisplayList::added, [this](SeismicDisplay* display) {
            EXPECT_TRUE(list.all().contains(display));
            heard += "+" + nameOf(display) + " ";
        });
        QObject::connect(&list, &DisplayList::removed, [this](SeismicDisplay* display, int place) {
            EXPECT_FALSE(list.all().contains(display));
            heard += "-" + nameOf(display) + "@" + std::to_string(place) + " ";
        });
    }
    static std::string nameOf(SeismicDisplay* display)
    {
        return std::to_string(reinterpret_cast<char*>(display) - reinterpret_cast<char*>(displayAt(0)));
    }
};

TEST(DisplayList, TellsWhatComesAndGoes)
{
    HeardList f;
    for (int i : {0, 1, 2}) f.list.append(displayAt(i));
    EXPECT_EQ(f.list.takeAt(1), displayAt(1));
    EXPECT_EQ(f.list.takeLast(), displayAt(2));
    EXPECT_EQ(f.heard, "+0 +1 +2 -1@1 -2@1 ");
    ASSERT_EQ(f.list.size(), 1);
    EXPECT_EQ(f.list[0], displayAt(0));
}

TEST(DisplayList, HoldsADisplayOnce)
{
    HeardList f;
    for (int i : {0, 1, 0}) f.list.append(displayAt(i));
    EXPECT_EQ(f.heard, "+0 +1 ");
    ASSERT_EQ(f.list.size(), 2);
    EXPECT_EQ(f.list.first(), displayAt(0));
    EXPECT_EQ(f.list.last(), displayAt(1));
}

TEST(DisplayList, ADisplayMayComeBeforeTheLast)
{
    HeardList f;
    for (int i : {0, 2}) f.list.append(displayAt(i));
    f.list.insert(1, displayAt(1));
    EXPECT_EQ(f.heard, "+0 +2 +1 ");
    for (int i : {0, 1, 2}) EXPECT_EQ(f.list[i], displayAt(i));
}

TEST(DisplayList, ClearingTellsOfEachFromTheLastOn)
{
    HeardList f;
    for (int i : {0, 1}) f.list.append(displayAt(i));
    f.list.clear();
    EXPECT_EQ(f.heard, "+0 +1 -1@1 -0@0 ");
    EXPECT_TRUE(f.list.isEmpty());
    EXPECT_EQ(f.list.begin(), f.list.end());
}
