/// The way from record to record, over a source and screens that the test makes up.
#include "frame/recordnavigator.h"

#include "host/report.h"
#include "tests/unit/frame/standinsource.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Boxes : Report {
    std::vector<std::string> titles;
    void line(const std::string&) override {}
    void box(const std::string& title, const std::string&) override { titles.push_back(title); }
};

/// Keeps the values that are on the screens; 0 is an empty one.
struct Screens : RecordScreens {
    explicit Screens(StandInSource* source) : source(source) {}
    int screenCount() const override { return int(shown.size()); }
    int moveUp() const override { return moveup; }
    bool showEnsemble(int screen) override
    {
        const int value = int(source->getTraces()[0][0]);
        if (value == tooLarge) return false;
        shown[size_t(screen)] = value;
        return true;
    }
    void clearScreens(int from) override { std::fill(shown.begin() + from, shown.end(), 0); }
    void recordsShown() override { ++nShown; }
    void recordsEnded() override { ++nEnded; }
    void sortChanged() override { sorts.push_back(source->sortText().toStdString()); }

    StandInSource* source;
    std::vector<int> shown = {0};
    int moveup = 1;
    int tooLarge = -1;  // there is no memory to show this one
    int nShown = 0, nEnded = 0;
    std::vector<std::string> sorts;
};

using Values = std::vector<int>;

struct RecordNavigatorTest : testing::Test {
    StandInSource source;
    Screens screens{&source};
    Boxes report;
    RecordNavigator navigator{&screens, &report};

    RecordNavigatorTest() { navigator.setSource(&source); }
    void withScreens(size_t n) { screens.shown.assign(n, 0); }
};

}  // namespace

TEST_F(RecordNavigatorTest, NextAndPreviousGoThroughTheList)
{
    EXPECT_TRUE(navigator.next());
    EXPECT_EQ(screens.shown, Values{10});
    EXPECT_TRUE(navigator.next());
    EXPECT_EQ(screens.shown, Values{20});
    EXPECT_EQ(navigator.firstEntry(), 1);
    EXPECT_EQ(navigator.text(), "Record 2 of 5");
    EXPECT_TRUE(navigator.previous());
    EXPECT_EQ(screens.shown, Values{10});
    EXPECT_TRUE(navigator.previous());
    EXPECT_EQ(screens.shown, Values{10}) << "the first one stays";
}

TEST_F(RecordNavigatorTest, NextStopsAtTheLastRecord)
{
    ASSERT_TRUE(navigator.showEntry(4));
    EXPECT_TRUE(navigator.next());
    EXPECT_EQ(screens.shown, Values{50});
    EXPECT_EQ(screens.nEnded, 0);
}

TEST_F(RecordNavigatorTest, NextMovesByWhatTheScreensSay)
{
    navigator.next();
    screens.moveup = 3;
    navigator.next();
    EXPECT_EQ(screens.shown, Values{40});
    navigator.previous();
    EXPECT_EQ(screens.shown, Values{10});
}

TEST_F(RecordNavigatorTest, FirstGoesBackToTheBeginning)
{
    navigator.showEntry(3);
    EXPECT_TRUE(navigator.first());
    EXPECT_EQ(screens.shown, Values{10});
    screens.moveup = 2;
    navigator.showEntry(3);
    EXPECT_TRUE(navigator.first());
    EXPECT_EQ(screens.shown, Values{10}) << "whatever next moves by";
}

TEST_F(RecordNavigatorTest, AnEntryOutsideOfTheListIsNotShown)
{
    navigator.next();
    EXPECT_FALSE(navigator.showEntry(5));
    EXPECT_FALSE(navigator.showEntry(-1));
    EXPECT_EQ(screens.shown, Values{10});
    EXPECT_TRUE(navigator.showEntry(4));
    EXPECT_EQ(screens.shown, Values{50});
}

TEST_F(RecordNavigatorTest, SeveralScreensShowTheRecordsSideBySide)
{
    withScreens(2);
    EXPECT_TRUE(navigator.next());
    EXPECT_EQ(screens.shown, (Values{10, 20}));
    EXPECT_EQ(navigator.text(), "Records 1 to 2 of 5");
    EXPECT_TRUE(navigator.next());
    EXPECT_EQ(screens.shown, (Values{30, 40}));
    EXPECT_TRUE(navigator.next());
    EXPECT_EQ(screens.shown, (Values{50, 0})) << "none is left for the second";
    EXPECT_EQ(navigator.shownCount(), 1);
    EXPECT_EQ(navigator.text(), "Record 5 of 5");
    EXPECT_TRUE(navigator.previous());
    EXPECT_EQ(screens.shown, (Values{30, 40}));
}

TEST_F(RecordNavigatorTest, ANewScreenIsFilledAndALostOneLeavesNextBehindTheLast)
{
    navigator.next();
    withScreens(3);
    screens.shown[0] = 10;
    navigator.fillScreens(1);
    EXPECT_EQ(screens.shown, (Values{10, 20, 30}));
    screens.shown.resize(2);
    navigator.dropScreens();
    EXPECT_EQ(navigator.shownCount(), 2);
    EXPECT_EQ(navigator.text(), "Records 1 to 2 of 5");
    navigator.next();
    EXPECT_EQ(screens.shown, (Values{30, 40}));
}

TEST_F(RecordNavigatorTest, WithoutAListItGoesForwardAloneAndCountsWhatItRead)
{
    source.isListed = false;
    navigator.next();
    navigator.next();
    EXPECT_EQ(screens.shown, Values{20});
    EXPECT_EQ(navigator.text(), "Record 2");
    EXPECT_EQ(navigator.firstEntry(), -1);
    EXPECT_FALSE(navigator.canSeek());
    EXPECT_FALSE(navigator.previous());
    EXPECT_FALSE(navigator.showEntry(0));
    EXPECT_FALSE(navigator.seek(SortCode(1), 10));
    EXPECT_EQ(screens.shown, Values{20});
}

TEST_F(RecordNavigatorTest, TheEndOfTheDataIsToldAndWhatWasShownStays)
{
    source.isListed = false;
    source.values = {10};
    navigator.next();
    EXPECT_TRUE(navigator.next());
    EXPECT_EQ(screens.nEnded, 1);
    EXPECT_EQ(screens.shown, Values{10});
    EXPECT_EQ(navigator.text(), "Record 1");
}

TEST_F(RecordNavigatorTest, AnIndexFindsTheRecordOfTheFirstScreen)
{
    withScreens(2);
    source.isListed = false;
    navigator.next();
    navigator.next();
    EXPECT_EQ(screens.shown, (Values{30, 40}));
    EXPECT_EQ(navigator.text(), "Records 3 to 4");
    source.isListed = true;
    navigator.takeIndex();
    EXPECT_EQ(navigator.firstEntry(), 2);
    EXPECT_EQ(navigator.text(), "Records 3 to 4 of 5");
}

TEST_F(RecordNavigatorTest, ASeekFindsAValueInTheSortInForce)
{
    EXPECT_TRUE(navigator.seek(SortCode(1), 40));
    EXPECT_EQ(screens.shown, Values{40});
    EXPECT_TRUE(screens.sorts.empty()) << "the same sort is not told";
    EXPECT_TRUE(navigator.seek(SortCode(1), 44));
    EXPECT_EQ(screens.shown, Values{50}) << "a value that isn't there is the last record";
}

TEST_F(RecordNavigatorTest, ASeekInAnotherSortTellsItBeforeTheRecordIsShown)
{
    navigator.next();
    EXPECT_TRUE(navigator.seek(SortCode(2), -20));
    EXPECT_EQ(screens.sorts, std::vector<std::string>{"Down"});
    EXPECT_EQ(screens.shown, Values{-20});
    EXPECT_EQ(navigator.firstEntry(), 3);
}

TEST_F(RecordNavigatorTest, ARefusedRecordLeavesEverythingAsItWas)
{
    navigator.next();
    source.refused = {20};
    EXPECT_FALSE(navigator.next());
    EXPECT_EQ(screens.shown, Values{10});
    EXPECT_EQ(navigator.firstEntry(), 0);
    EXPECT_EQ(navigator.text(), "Record 1 of 5");
    EXPECT_TRUE(report.titles.empty()) << "the source has said why";
}

TEST_F(RecordNavigatorTest, ARefusedSeekInAnotherSortGoesBackToTheFormerSort)
{
    navigator.showEntry(2);
    source.refused = {-20};
    EXPECT_FALSE(navigator.seek(SortCode(2), -20));
    EXPECT_EQ(source.currentSortKey(), SortCode(1));
    EXPECT_TRUE(screens.sorts.empty());
    navigator.next();
    EXPECT_EQ(screens.shown, Values{40});
}

TEST_F(RecordNavigatorTest, ARecordThatThereIsNoMemoryToShowGivesTheFormerOneBackAfterABox)
{
    navigator.showEntry(1);
    screens.tooLarge = 30;
    EXPECT_FALSE(navigator.next());
    EXPECT_EQ(report.titles, std::vector<std::string>{"SEGY Memory"});
    EXPECT_EQ(screens.shown, Values{20});
    EXPECT_EQ(navigator.text(), "Record 2 of 5");
    screens.tooLarge = -1;
    EXPECT_TRUE(navigator.next());
    EXPECT_EQ(screens.shown, Values{30});
}

TEST_F(RecordNavigatorTest, OnSeveralScreensTheFormerRecordsComeBackTogether)
{
    withScreens(2);
    navigator.next();
    screens.tooLarge = 30;
    EXPECT_FALSE(navigator.next());
    EXPECT_EQ(screens.shown, (Values{10, 20}));
    EXPECT_EQ(navigator.firstEntry(), 0);
}

TEST_F(RecordNavigatorTest, ASeekThatCanNotBeShownTakesItsSortBackToo)
{
    navigator.showEntry(2);
    screens.tooLarge = -20;
    EXPECT_FALSE(navigator.seek(SortCode(2), -20));
    EXPECT_EQ(source.currentSortKey(), SortCode(1));
    EXPECT_EQ(screens.sorts, (std::vector<std::string>{"Down", "Up"}));
    EXPECT_EQ(screens.shown, Values{30});
}

TEST_F(RecordNavigatorTest, WithoutASourceNothingMoves)
{
    navigator.next();
    navigator.setSource(nullptr);
    EXPECT_FALSE(navigator.next());
    EXPECT_FALSE(navigator.previous());
    EXPECT_FALSE(navigator.first());
    EXPECT_FALSE(navigator.showEntry(0));
    EXPECT_FALSE(navigator.seek(SortCode(1), 10));
    EXPECT_EQ(navigator.recordCount(), 0);
    EXPECT_EQ(screens.shown, Values{10});
}

TEST_F(RecordNavigatorTest, AnotherSourceIsCountedAnew)
{
    source.isListed = false;
    navigator.next();
    navigator.next();
    StandInSource other;
    other.isListed = false;
    screens.source = &other;
    navigator.setSource(&other);
    other.loadNextEnsemble(1);
    navigator.show();
    EXPECT_EQ(navigator.text(), "Record 1");
}

TEST_F(RecordNavigatorTest, ASourceThatHasGoneIsNone)
{
    {
        StandInSource other;
        navigator.setSource(&other);
        EXPECT_TRUE(navigator.canSeek());
    }
    EXPECT_FALSE(navigator.canSeek());
    EXPECT_EQ(navigator.recordCount(), 0);
    EXPECT_FALSE(navigator.next() || navigator.previous() || navigator.first());
    EXPECT_FALSE(navigator.showEntry(0) || navigator.seek(SortCode(1), 10));
    EXPECT_EQ(screens.shown, Values{0});
}
