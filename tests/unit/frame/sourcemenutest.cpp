/// What the menu record gets from a source, and in which order.
#include "frame/sourcemenu.h"

#include "sources/segysortkeys.h"
#include "tests/unit/frame/standinsource.h"
#include "tests/unit/sources/segyloaderfixture.h"
#include "tests/unit/sources/sortcases.h"
#include "tracedata/parmmenu.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

using SourceMenuTest = SegyLoaderTest;

TEST_F(SourceMenuTest, EverySortOfAFileReachesTheMenu)
{
    for (const SortCase& c : sortCases) {
        SCOPED_TRACE(testing::Message() << "sort " << c.isort << " reel " << c.reelSort);
        SegyBuilder file = shots({1});
        file.put<int16_t>(3228, int16_t(c.reelSort));
        Loaded l({.files = save(file), .isort = c.isort});
        ASSERT_TRUE(l.open().isGood);
        const auto menu = std::make_unique<parmmenu>();
        menu->idomain = 5;
        copySource(menu.get(), *l.loader);
        EXPECT_EQ(menu->_orvinruntime.idtyp, c.idtyp);
        EXPECT_EQ(menu->_orvinruntime.ipsort, c.ipsort);
        EXPECT_EQ(menu->_orvinruntime.ipkey, c.iepkey);
        EXPECT_EQ(menu->ipkeyreal, c.iepkey);
        EXPECT_EQ(menu->iskey, c.ieskey);
        EXPECT_EQ(menu->_orvinruntime.idomain, 5);
        EXPECT_EQ(menu->_orvinruntime.numsmp, 3);
        EXPECT_EQ(menu->_orvinruntime.samprat, 2.0f);
        EXPECT_EQ(menu->_orvinruntime.nth, 60);
    }
}

TEST_F(SourceMenuTest, TheMenuGetsItsDisplayDefaults)
{
    Loaded l({.files = save(shots({1})), .maxtr = 77});
    ASSERT_TRUE(l.open().isGood);
    const auto record = std::make_unique<parmmenu>();
    parmmenu& menu = *record;
    std::memset(static_cast<void*>(&menu), 0x55, sizeof menu);
    setSourceDefaults(&menu, *l.loader);
    EXPECT_EQ(menu.idisplay, 0);
    EXPECT_EQ(menu.iscreens, 1);
    EXPECT_EQ(menu.icollect, 10);
    EXPECT_EQ(menu.nens, 77);
    EXPECT_EQ(menu.clip, 2.0f);
    EXPECT_EQ(menu.minrange, -3.0f);
    EXPECT_EQ(menu.maxrange, 3.0f);
    EXPECT_EQ(menu.iskeymod, 2);
    EXPECT_EQ(menu.iskeyinc, 25);
    EXPECT_EQ(menu.irange, 1);
    EXPECT_EQ(menu.iplotheader, -1);
    EXPECT_EQ(menu.iscale, 1);
    EXPECT_EQ(menu.ireset, 1);
    EXPECT_EQ(menu.moveup, 1);
    EXPECT_EQ(menu.iagc, 0x55555555) << "what the source doesn't know stays";
}

namespace {

/// A source that tells each field another number.
struct Told {
    StandInSource source;
    std::unique_ptr<parmmenu> menu = std::make_unique<parmmenu>();
    const orvinRuntimeStruct& runtime = menu->_orvinruntime;

    Told()
    {
        source.told = {.samprat = 0.5f,
                       .numsmp = 11,
                       .ipsort = 12,
                       .maxdtr = 13,
                       .idtyp = 14,
                       .nth = 15,
                       .mode = 16,
                       .iounit = 17,
                       .ipkey = 18,
                       .iskey = 19,
                       .idate = 20,
                       .idomain = 21};
        menu->idomain = 3;
        menu->_orvinruntime.mode = 4;
        menu->_orvinruntime.idate = 5;
    }
};

}  // namespace

TEST(SourceMenu, KeysAndRunTimeRecordAreCopiedFieldByField)
{
    Told t;
    copySource(t.menu.get(), t.source);
    EXPECT_EQ(t.menu->ipkey, 4);
    EXPECT_EQ(t.menu->ipkeyreal, 4);
    EXPECT_EQ(t.menu->iskey, 1);
    EXPECT_EQ(t.menu->iskeyreal, 1);
    EXPECT_EQ(t.runtime.samprat, 0.5f);
    EXPECT_EQ(t.runtime.numsmp, 11);
    EXPECT_EQ(t.runtime.ipsort, 12);
    EXPECT_EQ(t.runtime.maxdtr, 13);
    EXPECT_EQ(t.runtime.idtyp, 14);
    EXPECT_EQ(t.runtime.nth, 15);
    EXPECT_EQ(t.runtime.ipkey, 18);
    EXPECT_EQ(t.runtime.iskey, 19);
    EXPECT_EQ(t.runtime.mode, 4) << "not a source's";
    EXPECT_EQ(t.runtime.idate, 5);
}

TEST(SourceMenu, TheDomainComesBeforeTheRunTimeRecordWhichFollowsIt)
{
    Told silent;
    copySource(silent.menu.get(), silent.source);
    EXPECT_EQ(silent.menu->idomain, 3) << "data that don't say leave the menu's";
    EXPECT_EQ(silent.runtime.idomain, 3);
    Told slices;
    slices.source.itsDomain = 8;
    copySource(slices.menu.get(), slices.source);
    EXPECT_EQ(slices.menu->idomain, 8);
    EXPECT_EQ(slices.runtime.idomain, 8);
}

TEST(SourceMenu, ANewSortLeavesSizesAndDomain)
{
    Told t;
    copySort(t.menu.get(), t.source);
    EXPECT_EQ(t.menu->ipkey, 4);
    EXPECT_EQ(t.menu->iskeyreal, 1);
    EXPECT_EQ(t.runtime.ipkey, 18);
    EXPECT_EQ(t.runtime.iskey, 19);
    EXPECT_EQ(t.runtime.ipsort, 12);
    EXPECT_EQ(t.runtime.idtyp, 14);
    EXPECT_EQ(t.runtime.numsmp, 0);
    EXPECT_EQ(t.runtime.maxdtr, 0);
    EXPECT_EQ(t.runtime.idomain, 0);
}

TEST(SourceMenu, TheDefaultsOverwriteThePictureAndTheCopyLeavesIt)
{
    Told t;
    t.menu->igain = 7;
    t.menu->iscreens = 2;
    setSourceDefaults(t.menu.get(), t.source);
    EXPECT_EQ(t.menu->igain, 0);
    EXPECT_EQ(t.menu->iscreens, 1);
    EXPECT_EQ(t.menu->nens, 13);
    EXPECT_EQ(t.menu->ipkey, 4);
    t.menu->igain = 7;
    copySource(t.menu.get(), t.source);
    EXPECT_EQ(t.menu->igain, 7);
}
