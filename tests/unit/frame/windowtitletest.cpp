#include "frame/windowtitle.h"

#include <gtest/gtest.h>

static const QString gap = "          ";  // ten blanks

TEST(WindowTitle, WithoutNamesIsTheProgramsAlone)
{
    EXPECT_EQ(WindowTitle().text(), "Seismic Display" + gap);
}

TEST(WindowTitle, TellsTheFileWhereTheLineIsUnknown)
{
    WindowTitle title;
    title.file = "shots.sgy";
    EXPECT_EQ(title.text(), "Seismic Display" + gap + "File: shots.sgy" + gap);
    title.area = "North";
    title.line = "12";
    EXPECT_EQ(title.text(), "Seismic Display" + gap + "Area: North      Line: 12" + gap);
    title.flow = "stack";
    EXPECT_EQ(title.text(), "Seismic Display" + gap + "Area: North      Line: 12      Flow: stack" + gap);
}

TEST(WindowTitle, HidesTheNames)
{
    WindowTitle title;
    title.area = "North";
    title.file = "shots.sgy";
    title.isShown = false;
    EXPECT_EQ(title.text(), "Seismic Display" + gap);
}
