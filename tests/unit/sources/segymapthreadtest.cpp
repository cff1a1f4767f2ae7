/// The index that is built beside the main thread.
#include "sources/segymapthread.h"
#include "tests/unit/sources/segyloaderfixture.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <gmock/gmock.h>

#include <filesystem>

using testing::ElementsAre;
using SegyMapThreadTest = SegyLoaderTest;

namespace {

void waitForIndex(SegyLoader* loader)
{
    QElapsedTimer clock;
    clock.start();
    while (!loader->isIndexBuilt() && clock.elapsed() < 10000) QCoreApplication::processEvents();
    ASSERT_TRUE(loader->isIndexBuilt());
}

/// Signals of threads need an application; one serves all tests of the program.
const auto application = [] {
    static int argc = 1;
    static char name[] = "unit_sources";
    static char* argv[] = {name, nullptr};
    return new QCoreApplication(argc, argv);
}();

}  // namespace

TEST_F(SegyMapThreadTest, ABackgroundBuildLeavesTheEnsembleAndThenNextGoesOnFromIt)
{
    // file order 20, 10, 30: the ensemble on screen is the list's second entry
    SegyBuilder file(1);
    for (int ffid : {20, 20, 10, 30}) {
        file.addTrace(Floats{float(ffid)});
        file.setHeader<int32_t>(file.traceStarts.size() - 1, 8, ffid);
    }
    Loaded l({save(file)});
    ASSERT_TRUE(l.open().isGood);
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(20, 20));
    int nBuilt = 0;
    QObject::connect(l.loader.get(), &SegyLoader::indexBuilt, [&] { ++nBuilt; });
    ASSERT_NE(l.loader->startIndexBuild(), nullptr);
    EXPECT_FALSE(l.loader->isIndexBuilt());
    EXPECT_FALSE(l.loader->canSeek());
    waitForIndex(l.loader.get());
    EXPECT_EQ(nBuilt, 1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(20, 20)) << "what is on screen stays";
    EXPECT_EQ(l.loader->priCurKey(), 1);
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(30));
    EXPECT_TRUE(l.loader->loadLastEnsemble(2));
    EXPECT_THAT(l.firstSamples(), ElementsAre(10));
}

TEST_F(SegyMapThreadTest, ReadingGoesOnWhileTheIndexIsBuilt)
{
    Loaded l({save(shots(std::vector<int>(200, 5)))});
    ASSERT_TRUE(l.open().isGood);
    l.loader->startIndexBuild();
    for (int shot = 1; shot <= 50; ++shot) {
        l.loader->loadNextEnsemble(1);
        ASSERT_EQ(l.loader->numTraces(), 5);
        ASSERT_EQ(l.loader->getTraces()[0][0], float(10 * shot + 1));
    }
    waitForIndex(l.loader.get());
    EXPECT_EQ(l.loader->priCurKey(), 49);
    EXPECT_EQ(l.loader->numEnsembles(), 200);
}

TEST_F(SegyMapThreadTest, LinesOfABackgroundBuildAreToldOnceItIsTakenOver)
{
    SegyBuilder file(2);
    file.addTrace(Floats{1, 2});
    file.setHeader<int16_t>(0, 114, 30000);
    file.setHeader<int32_t>(0, 0, 9);
    LoaderParm parm{save(file)};
    parm.ivariable = 1;
    Loaded l(parm);
    ASSERT_TRUE(l.open().isGood);
    l.report.text.clear();
    l.loader->startIndexBuild();
    waitForIndex(l.loader.get());
    EXPECT_EQ(l.report.text, "segyData2: error while reading variable length trace: 9, num samples=30000\n");
}

TEST_F(SegyMapThreadTest, AFileThatIsGoneFailsTheBackgroundBuildAndReadingGoesOn)
{
    LoaderParm parm{save(shots({2, 2}))};
    Loaded l(parm);
    ASSERT_TRUE(l.open().isGood);
    std::filesystem::remove(parm.files);
    SegyMapThread* thread = l.loader->startIndexBuild();
    ASSERT_TRUE(thread->wait(10000));
    QCoreApplication::processEvents();
    EXPECT_FALSE(l.loader->isIndexBuilt());
    EXPECT_TRUE(l.report.has("segyData2: open error=No such file or directory"));
    EXPECT_TRUE(l.loader->loadNextEnsemble(1));
    EXPECT_EQ(l.loader->numTraces(), 2);
}

TEST_F(SegyMapThreadTest, ABuildGoesOnUntilItsMapIsTakenOverAndThenSaysSoOnce)
{
    Loaded l({save(shots({2, 3}))});
    ASSERT_TRUE(l.open().isGood);
    int nEnded = 0;
    bool wasBuilt = false;
    QObject::connect(l.loader.get(), &SegyLoader::indexBuildEnded, [&] {
        ++nEnded;
        wasBuilt = l.loader->isIndexBuilt();
    });
    SegyMapThread* thread = l.loader->startIndexBuild();
    // The thread has ended, but this one has not heard of it: who looks now must not take it for over.
    ASSERT_TRUE(thread->wait(10000));
    EXPECT_TRUE(l.loader->isIndexBuilding());
    EXPECT_EQ(l.loader->startIndexBuild(), thread) << "a finished map is not thrown away";
    waitForIndex(l.loader.get());
    EXPECT_FALSE(l.loader->isIndexBuilding());
    EXPECT_EQ(nEnded, 1);
    EXPECT_TRUE(wasBuilt);
}

TEST_F(SegyMapThreadTest, AnIndexCanBeAskedForWithoutKnowingTheLoader)
{
    Loaded l({save(shots({2, 3}))});
    ASSERT_TRUE(l.open().isGood);
    EnsembleSource& source = *l.loader;
    int nStarted = 0, nEnded = 0;
    QObject::connect(&source, &EnsembleSource::indexBuildStarted, [&] { ++nStarted; });
    QObject::connect(&source, &EnsembleSource::indexBuildEnded, [&] { ++nEnded; });
    EXPECT_TRUE(source.canBuildIndex());
    source.requestIndex();
    source.requestIndex();
    EXPECT_TRUE(source.isIndexBuilding());
    EXPECT_FALSE(source.canBuildIndex());
    EXPECT_EQ(nStarted, 1);
    waitForIndex(l.loader.get());
    EXPECT_FALSE(source.isIndexBuilding() || source.canBuildIndex());
    EXPECT_EQ(nEnded, 1);
    EXPECT_EQ(source.numEnsembles(), 2);
    source.requestIndex();
    EXPECT_EQ(nStarted, 1) << "there is one";
}

TEST_F(SegyMapThreadTest, ASortChangedDuringTheBuildIsTheOneThatCounts)
{
    Loaded l({save(shots({2, 3}))});
    ASSERT_TRUE(l.open().isGood);
    l.loader->loadNextEnsemble(1);
    l.loader->startIndexBuild();
    l.loader->buildNewSort(SortCode(11));
    waitForIndex(l.loader.get());
    EXPECT_EQ(l.loader->numEnsembles(), 5);
    EXPECT_EQ(l.loader->priCurKey(), 0);
}

TEST_F(SegyMapThreadTest, ALoaderThatGoesDuringABuildStopsIt)
{
    const std::string name = save(shots(std::vector<int>(300, 20)));
    for (int i = 0; i < 20; ++i) {
        auto l = std::make_unique<Loaded>(LoaderParm{name});
        ASSERT_TRUE(l->open().isGood);
        l->loader->startIndexBuild();
        l.reset();
    }
    QCoreApplication::processEvents();
}
