/// Sort changes on real files: whatever was sorted before, a sort gives what a fresh open gives.
#include "tests/testdata.h"
#include "tests/unit/sources/segyloaderfixture.h"

#include <random>

static std::vector<uint32_t> order(SegyLoader& loader)
{
    std::vector<uint32_t> ranks;
    for (int i = 0; i < loader.getTotalTraces(); ++i) ranks.push_back(loader.getMapArray()[i].itrace);
    return ranks;
}

TEST(SortChanges, AnySequenceOfThemGivesTheOrderOfAFreshOpen)
{
    SKIP_WITHOUT_TEST_DATA();
    std::mt19937 random(5);
    int nChanges = 0;
    for (const char* name : {"poststack-3d/f3.sgy", "prestack-synthetic/shots_static_25.sgy", "poststack-2d/lineE.sgy",
                             "prestack-marine/viking_small.segy", "odd-headers/small-ps.sgy"}) {
        const std::string file = testDataFile(name);
        Loaded changed({.files = file, .isort = 1, .indexbuilt = 1});
        ASSERT_TRUE(changed.open().isGood);
        for (int i = 0; i < 22; ++i, ++nChanges) {
            const int sort = 1 + int(random() % 11);
            changed.loader->buildNewSort(SortCode(sort));
            Loaded fresh({.files = file, .isort = sort, .indexbuilt = 1});
            ASSERT_TRUE(fresh.open().isGood);
            EXPECT_EQ(order(*changed.loader), order(*fresh.loader)) << name << ", sort " << sort << ", change " << i;
            EXPECT_EQ(changed.loader->priList(), fresh.loader->priList());
        }
    }
    EXPECT_EQ(nChanges, 110);
}
