/// Ensembles out of SEG-Y files, sequentially and by index.
#include "host/flow/stheader.h"
#include "host/globals.h"
#include "tests/unit/sources/segyloaderfixture.h"
#include "tests/unit/sources/sortcases.h"
#include "tracedata/headertable.h"

#include <gmock/gmock.h>

#include <array>
#include <filesystem>

using testing::ElementsAre;

TEST_F(SegyLoaderTest, WithoutAnIndexAnEnsembleEndsWhereThePrimaryKeyChanges)
{
    Loaded l({save(shots({3, 1, 2}))});
    ASSERT_TRUE(l.open().isGood);
    EXPECT_TRUE(l.loader->loadNextEnsemble(1));
    EXPECT_THAT(l.firstSamples(), ElementsAre(11, 12, 13));
    EXPECT_EQ(l.loader->priCurValue(), 10);
    EXPECT_TRUE(l.loader->loadNextEnsemble(5)) << "moveup has no effect";
    EXPECT_THAT(l.firstSamples(), ElementsAre(21)) << "the trace that ended the last ensemble is read again";
    EXPECT_TRUE(l.loader->loadNextEnsemble(1));
    EXPECT_THAT(l.firstSamples(), ElementsAre(31, 32));
    EXPECT_THAT(l.words("CHAN    "), ElementsAre(1, 2));
    EXPECT_TRUE(l.loader->loadNextEnsemble(1));
    EXPECT_EQ(l.loader->numTraces(), 0) << "the end";
    EXPECT_FALSE(l.loader->loadLastEnsemble(1));
    EXPECT_FALSE(l.loader->seekEnsemble(10));
    EXPECT_FALSE(l.loader->canSeek());
}

TEST_F(SegyLoaderTest, SequentialReadingStepsBackOverTracesOfVariableLengthAndBadOnes)
{
    SegyBuilder file(2);
    const int lengths[] = {2, 5000, 3, 1};
    for (int i = 0; i < 4; ++i) {
        file.addTrace(Floats(size_t(lengths[i]), float(i + 1)));
        file.setHeader<int16_t>(size_t(i), 114, int16_t(lengths[i]));
        file.setHeader<int32_t>(size_t(i), 8, i / 2 + i % 2);  // 0, 1, 1, 2
    }
    LoaderParm parm{save(file)};
    parm.ivariable = 1;
    Loaded l(parm);
    ASSERT_TRUE(l.open().isGood);
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(1));
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(2, 3));
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(4));
    EXPECT_EQ(l.loader->getTraces()[0][1], 0.0f);
}

TEST_F(SegyLoaderTest, AnEnsembleStopsAtTheCapacityAndGoesOnInTheNext)
{
    LoaderParm parm{save(shots({5}))};
    parm.maxtr = 3;
    Loaded l(parm);
    ASSERT_TRUE(l.open().isGood);
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(11, 12, 13));
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(14, 15));
}

TEST_F(SegyLoaderTest, WithAnIndexStepsAreClampedToTheList)
{
    LoaderParm parm{save(shots({2, 3, 1}))};
    parm.indexbuilt = 1;
    Loaded l(parm);
    ASSERT_TRUE(l.open().isGood);
    EXPECT_EQ(l.loader->numEnsembles(), 3);
    EXPECT_THAT(l.loader->priList(), ElementsAre("10", "20", "30"));
    EXPECT_TRUE(l.loader->canSeek());
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(11, 12));
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(21, 22, 23));
    EXPECT_TRUE(l.loader->loadLastEnsemble(5)) << "five back from the second is the first";
    EXPECT_THAT(l.firstSamples(), ElementsAre(11, 12));
    l.loader->loadNextEnsemble(2);
    EXPECT_THAT(l.firstSamples(), ElementsAre(31));
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(31)) << "one on from the last is the last";
    EXPECT_TRUE(l.loader->seekEnsemble(20));
    EXPECT_THAT(l.firstSamples(), ElementsAre(21, 22, 23));
    EXPECT_TRUE(l.loader->seekEnsemble(99)) << "a value that isn't there shows the last ensemble";
    EXPECT_THAT(l.firstSamples(), ElementsAre(31));
    EXPECT_EQ(l.loader->priCurValue(), 30);
}

TEST_F(SegyLoaderTest, AnIndexTellsValueAndTracesOfEachEntryAndNothingOutside)
{
    LoaderParm parm;
    parm.files = save(shots({2, 3, 1}));
    parm.indexbuilt = true;
    Loaded l(parm);
    ASSERT_TRUE(l.open().isGood);
    const int values[] = {0, 10, 20, 30, 0}, traces[] = {0, 2, 3, 1, 0};  // entries -1 to 3
    for (int entry = -1; entry <= 3; ++entry) {
        EXPECT_EQ(l.loader->ensembleValue(entry), values[entry + 1]) << entry;
        EXPECT_EQ(l.loader->ensembleTraces(entry), traces[entry + 1]) << entry;
    }
}

TEST_F(SegyLoaderTest, TheIndexSortsByBothKeys)
{
    SegyBuilder file(1);
    const int keys[][2] = {{20, 2}, {10, 3}, {20, 1}, {10, 1}, {10, 2}};
    for (int i = 0; i < 5; ++i) {
        file.addTrace(Floats{float(i)});
        file.setHeader<int32_t>(size_t(i), 8, keys[i][0]);
        file.setHeader<int32_t>(size_t(i), 12, keys[i][1]);
        file.setHeader<int32_t>(size_t(i), 20, 7 - i);
    }
    LoaderParm parm{save(file)};
    parm.indexbuilt = 1;
    Loaded l(parm);
    ASSERT_TRUE(l.open().isGood);
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(3, 4, 1));
    EXPECT_EQ(l.loader->priName(), "FFID    ");
    EXPECT_EQ(l.loader->secName(), "CHAN    ");
    l.loader->buildNewSort(SortCode(4));
    EXPECT_THAT(l.loader->priList(), ElementsAre("3", "4", "5", "6", "7"));
    EXPECT_EQ(l.loader->currentSortKey(), SortCode(4));
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(4));
    float least, largest;
    l.loader->getSortRange(SortCode(1), &least, &largest);
    EXPECT_EQ(least, 10.0f);
    EXPECT_EQ(largest, 20.0f);
    l.loader->getSortRange(SortCode(4), &least, &largest);
    EXPECT_EQ(least, 3.0f);
    EXPECT_EQ(largest, 7.0f);
    l.loader->getSortRange(SortCode(5), &least, &largest);
    EXPECT_EQ(least, 0.0f);
    EXPECT_EQ(largest, 0.0f);
}

TEST_F(SegyLoaderTest, TheSourceSortSortsOnByte197AsItStandsAndEndsOnTheWordAtByte17)
{
    SegyBuilder file(1);
    for (int i = 0; i < 3; ++i) {
        file.addTrace(Floats{float(i)});
        // little-endian, as bytes from 197 on aren't swapped
        const int location = 7 + (2 - i);
        std::memcpy(file.bytes.data() + file.traceStarts[size_t(i)] + 196, &location, 4);
        file.setHeader<int32_t>(size_t(i), 16, 7);
    }
    LoaderParm parm{save(file)};
    parm.isort = 2;
    parm.indexbuilt = 1;
    Loaded l(parm);
    ASSERT_TRUE(l.open().isGood);
    EXPECT_THAT(l.loader->priList(), ElementsAre("7", "8", "9"));
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(2, 1, 0)) << "the word at byte 17 is 7 throughout";
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(1)) << "the first trace always counts, the next one's 7 isn't 8";
}

TEST_F(SegyLoaderTest, ByTraceNumberEveryEnsembleHoldsOneTrace)
{
    LoaderParm parm{save(shots({2, 1}))};
    parm.isort = 11;
    parm.indexbuilt = 1;
    Loaded l(parm);
    ASSERT_TRUE(l.open().isGood);
    EXPECT_EQ(l.loader->priKey(), KeyNumber(1));
    EXPECT_EQ(l.loader->priEKey(), WordFrom1(1));
    EXPECT_THAT(l.loader->priList(), ElementsAre("1", "2", "3"));
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(11));
}

TEST_F(SegyLoaderTest, EverySortCodeHasItsKeys)
{
    for (const SortCase& c : sortCases) {
        SCOPED_TRACE(testing::Message() << "sort " << c.isort << " reel " << c.reelSort);
        SegyBuilder file = shots({1});
        file.put<int16_t>(3228, int16_t(c.reelSort));
        LoaderParm parm{save(file)};
        parm.isort = c.isort;
        Loaded l(parm);
        ASSERT_TRUE(l.open().isGood);
        EXPECT_EQ(l.loader->currentSortKey().value, c.code);
        EXPECT_EQ(l.loader->priKey().value, c.ipkey);
        EXPECT_EQ(l.loader->secKey().value, c.iskey);
        EXPECT_EQ(l.loader->priEKey().value, c.iepkey);
        EXPECT_EQ(l.loader->secEKey().value, c.ieskey);
        EXPECT_EQ(l.loader->isStacked(), c.idtyp == 7);
        const GlobalRuntime runtime = l.loader->runTime();
        EXPECT_EQ(runtime.idtyp, c.idtyp);
        EXPECT_EQ(runtime.ipsort, c.ipsort);
        EXPECT_EQ(runtime.ipkey, c.iepkey);
        EXPECT_EQ(runtime.iskey, c.ieskey);
        EXPECT_EQ(runtime.numsmp, 3);
        EXPECT_EQ(runtime.samprat, 2.0f);
        EXPECT_EQ(runtime.nth, 60);
    }
    EXPECT_THAT(segySortNames(),
                ElementsAre("FFID", "Source", "Receiver", "CDP Gather", "Stack", "Offset", "In-Line CDP Gather",
                            "X-Line CDP Gather", "In-Line Stack", "X-Line Stack", "Trace Number"));
}

TEST_F(SegyLoaderTest, TheCapacityComesFromUserReelAndAuxiliaryTraces)
{
    static const struct {
        int maxtr, ntrc, naux, expected;
    } cases[] = {{0, 0, 0, 5000},  {100, 0, 2, 102}, {0, 48, 0, 48},    {0, 48, 2, 50},
                 {0, -5, 0, 5000}, {0, -5, 8, 3},    {-5, 48, 0, 5000}, {100, 48, -7, 100}};
    for (const auto& c : cases) {
        SegyBuilder file = shots({1});
        file.put<int16_t>(3212, int16_t(c.ntrc));
        file.put<int16_t>(3214, int16_t(c.naux));
        LoaderParm parm{save(file)};
        parm.maxtr = c.maxtr;
        Loaded l(parm);
        ASSERT_TRUE(l.open().isGood);
        EXPECT_EQ(l.loader->maxTraces(), c.expected) << c.maxtr << " " << c.ntrc << " " << c.naux;
    }
}

TEST_F(SegyLoaderTest, CountAndRateOfTheUserWinOverTheReel)
{
    LoaderParm parm{save(shots({2}))};
    parm.nsamp = 2;
    parm.srate = 1.5f;
    Loaded l(parm);
    ASSERT_TRUE(l.open().isGood);
    EXPECT_EQ(l.loader->numSamples(), 2);
    EXPECT_EQ(l.loader->sampleRate(), 1.5f);
    EXPECT_EQ(l.loader->getReelHeader()->nsr, 1500);
    EXPECT_EQ(l.loader->getReelHeader()->nsamp, 2);
    Loaded own({save(shots({2}))});
    ASSERT_TRUE(own.open().isGood);
    EXPECT_EQ(own.loader->sampleRate(), 2.0f);
}

TEST_F(SegyLoaderTest, ACountAbove32767GivenByTheUserIsKeptWhole)
{
    SegyBuilder file(3);
    file.addTrace(Floats(40000, 0.25f));
    LoaderParm parm{save(file)};
    parm.nsamp = 40000;
    Loaded l(parm);
    ASSERT_TRUE(l.open().isGood);
    l.loader->loadNextEnsemble(1);
    EXPECT_EQ(l.loader->numTraces(), 1);
    EXPECT_EQ(l.loader->numSamples(), 40000);
    EXPECT_EQ(l.loader->getTraces()[0][39999], 0.25f);
}

TEST_F(SegyLoaderTest, TheFormatChoiceOverridesTheReel)
{
    static const struct {
        int choice, code;
    } cases[] = {{0, 3}, {1, 5}, {2, 1}, {3, 2}, {4, 3}, {5, 6}, {6, 4}, {7, 3}};
    for (const auto& c : cases) {
        SegyBuilder file = shots({1});
        file.put<int16_t>(3224, 3);
        LoaderParm parm{save(file)};
        parm.iformat = c.choice;
        Loaded l(parm);
        ASSERT_TRUE(l.open().isGood);
        EXPECT_EQ(l.loader->getReelHeader()->format, c.code) << c.choice;
    }
}

TEST_F(SegyLoaderTest, AnMsdosFileHasTheOtherByteOrderAndAsciiText)
{
    SegyBuilder file(2, 5, false);
    std::memcpy(file.bytes.data(), "C 1 CLIENT", 10);
    file.addTrace(Floats{1.5f, 2.5f});
    file.setHeader<int32_t>(0, 8, 4711);
    LoaderParm parm{save(file)};
    parm.itype = 1;
    Loaded l(parm);
    ASSERT_TRUE(l.open().isGood);
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(1.5f));
    EXPECT_THAT(l.words("FFID    "), ElementsAre(4711));
    EXPECT_EQ(l.loader->getEbcdic().left(10), "C 1 CLIENT");
}

TEST_F(SegyLoaderTest, AReelWithoutCountOrRateIsRefusedWithTheBox)
{
    static const struct {
        int nsamp, nsr;
        float srate;
        const char* line;
    } cases[] = {{0, 2000, 0.0f, "\n\nSEGYLOADER: Error, number of samples is less than zero. value=0\n\n"},
                 {2, 0, 0.0f, "\n\nSEGYLOADER: Error, sample rate is less than zero. value=0\n\n"},
                 {2, 2000, 1e-7f, "\n\nSEGYLOADER: Error, sample rate is less than zero. value=0\n\n"}};
    for (const auto& c : cases) {
        SegyBuilder file(c.nsamp);
        file.put<int16_t>(3216, int16_t(c.nsr));
        file.addTrace(Floats{1, 2});
        LoaderParm parm{save(file)};
        parm.srate = c.srate;
        Loaded l(parm);
        EXPECT_FALSE(l.open().isGood);
        EXPECT_TRUE(l.report.has(c.line)) << l.report.text;
        EXPECT_THAT(l.report.boxes, ElementsAre("SEGY Reel Header Problem: "
                                                "There was a problem while reading the SEGY reel header.\n\n"
                                                "Is this MSDOS SEGY format?\n\n"
                                                "Check standard error file for complete error message."));
        EXPECT_EQ(l.loader, nullptr) << "no loader is open in part";
    }
}

TEST_F(SegyLoaderTest, AMissingOrShortFileIsRefusedWithItsLine)
{
    Loaded missing({"/no/such/file"});
    EXPECT_FALSE(missing.open().isGood);
    EXPECT_EQ(missing.report.text, "\nsegyData2: open error=No such file or directory\n\n"
                                   "SegyLoader: Error while opening file: /no/such/file.\n");
    SegyBuilder file(3);
    file.bytes.resize(100);
    Loaded shortFile({save(file)});
    EXPECT_FALSE(shortFile.open().isGood);
    EXPECT_TRUE(shortFile.report.has("SegyLoader: Error while reading reel headers.\n"));
    EXPECT_TRUE(shortFile.report.boxes.empty());
}

TEST_F(SegyLoaderTest, ASortCodeThatAReelGaveIsNotCarriedOverToTheNextFile)
{
    for (const auto& [first, second, expected] : {std::array{4, 1, 1}, std::array{1, 4, 5}, std::array{2, 3, 0}}) {
        SegyBuilder one = shots({2}), two = shots({1, 2});
        one.put<int16_t>(3228, int16_t(first));
        two.put<int16_t>(3228, int16_t(second));
        const std::string names = save(one, "one.sgy") + "," + save(two, "two.sgy");
        Loaded fromData({.files = names});
        ASSERT_TRUE(fromData.open().isGood);
        EXPECT_EQ(fromData.loader->currentSortKey().value, expected) << first << " " << second;
        Loaded given({.files = names, .isort = 4});
        ASSERT_TRUE(given.open().isGood);
        EXPECT_EQ(given.loader->currentSortKey().value, 4);
    }
}

TEST_F(SegyLoaderTest, OfTwoFilesOnlyTheSecondIsReadAndTheFirstOnesReelIsForgotten)
{
    SegyBuilder first = shots({1});
    first.put<int16_t>(3216, 8000);
    first.put<int16_t>(3212, 9);
    SegyBuilder second(2);
    second.addTrace(Floats{91, 92});
    const std::string names = save(first, "1.sgy") + "," + save(second, "2.sgy") + ",";
    Loaded l({names});
    ASSERT_TRUE(l.open().isGood);
    EXPECT_EQ(l.loader->numSamples(), 2);
    EXPECT_EQ(l.loader->sampleRate(), 2.0f);
    EXPECT_EQ(l.loader->maxTraces(), 5000);
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(91));
    LoaderParm withUser{names};
    withUser.nsamp = 1;
    withUser.maxtr = 4;
    Loaded user(withUser);
    ASSERT_TRUE(user.open().isGood);
    EXPECT_EQ(user.loader->numSamples(), 1);
    EXPECT_EQ(user.loader->maxTraces(), 4);
}

TEST_F(SegyLoaderTest, AuxiliaryTracesOfSeveralFilesAreNotAddedUp)
{
    SegyBuilder file = shots({1});
    file.put<int16_t>(3214, 2);
    const std::string name = save(file);
    LoaderParm parm{name + "," + name};
    parm.maxtr = 100;
    Loaded l(parm);
    ASSERT_TRUE(l.open().isGood);
    EXPECT_EQ(l.loader->maxTraces(), 102);
}

TEST_F(SegyLoaderTest, TheFirstBadFileOfAListEndsIt)
{
    Loaded l({save(shots({1})) + ",/no/such/file"});
    EXPECT_FALSE(l.open().isGood);
    EXPECT_EQ(l.fileInHand, "/no/such/file");
}

TEST_F(SegyLoaderTest, AFileNameWithACommaGetsAClearMessage)
{
    const std::string name = save(shots({1}), "line 1, part 2.sgy");
    Loaded l({name});
    EXPECT_FALSE(l.open().isGood);
    ASSERT_EQ(l.report.boxes.size(), 1u);
    EXPECT_NE(l.report.boxes[0].find("A file name with a comma can't be in the list of files."), std::string::npos);
    EXPECT_NE(l.report.boxes[0].find(name), std::string::npos);
}

TEST_F(SegyLoaderTest, TheLongestRunOfAStackRaisesTheCapacity)
{
    // CHAN of a stack: 1 2 3 1 2 | 1 2 3 4: a new run starts where it falls
    SegyBuilder file(1);
    const int channels[] = {1, 2, 3, 1, 2, 1, 2, 3, 4};
    for (int i = 0; i < 9; ++i) {
        file.addTrace(Floats{float(i)});
        file.setHeader<int32_t>(size_t(i), 12, channels[i]);
    }
    LoaderParm parm{save(file)};
    parm.isort = 5;
    parm.maxtr = 1;
    parm.indexbuilt = 1;
    Loaded l(parm);
    ASSERT_TRUE(l.open().isGood);
    // 2 at the first fall (the first run counts from 0, later ones from 1), 2, then 4
    EXPECT_EQ(l.loader->maxTraces(), 4);
}

TEST_F(SegyLoaderTest, TheLastPrimaryRunDoesNotRaiseTheCapacity)
{
    LoaderParm parm{save(shots({2, 3, 6}))};
    parm.maxtr = 1;
    parm.indexbuilt = 1;
    Loaded l(parm);
    ASSERT_TRUE(l.open().isGood);
    EXPECT_EQ(l.loader->maxTraces(), 3);
    l.loader->seekEnsemble(30);
    EXPECT_EQ(l.loader->numTraces(), 3);
}

TEST_F(SegyLoaderTest, AnIndexedTraceIsReadWithItsWords)
{
    LoaderParm parm{save(shots({3}))};
    parm.indexbuilt = 1;
    Loaded l(parm);
    ASSERT_TRUE(l.open().isGood);
    Floats data(60 + 3);
    EXPECT_EQ(l.loader->seekTraceConverted(1, data.data(), false), 252);
    int channel;
    std::memcpy(&channel, &data[0], 4);
    EXPECT_EQ(channel, 2);
    EXPECT_EQ(data[1], 50.0f);
    EXPECT_THAT(Floats(data.begin() + 60, data.end()), ElementsAre(12.0f, 0.5f, -0.5f));
    EXPECT_EQ(l.loader->seekTraceConverted(3, data.data(), false), 0);
}

TEST_F(SegyLoaderTest, TheRemapWinsOverTheStandardMappingInMapAndEnsemble)
{
    SegyBuilder file = shots({2, 2});
    LoaderParm parm{save(file)};
    parm.isort = 4;
    parm.iremap = 1;
    parm.indexbuilt = 1;
    Loaded l(parm);
    l.parm.remapTable = remapTableFromText("CDP,4I,IEEE,1");
    ASSERT_TRUE(l.open().isGood);
    EXPECT_THAT(l.loader->priList(), ElementsAre("1", "2", "3", "4"));
    l.loader->loadNextEnsemble(1);
    EXPECT_EQ(l.word(0, "CDP     "), 1);
    EXPECT_EQ(l.loader->applyRemap(), 1);
}

TEST_F(SegyLoaderTest, WithTheShippedPresetTheSourceSortAndItsEndAgree)
{
    SegyBuilder file(1);
    const int sources[] = {8, 7, 8, 7, 7};
    for (int i = 0; i < 5; ++i) {
        file.addTrace(Floats{float(i)});
        file.setHeader<int32_t>(size_t(i), 16, sources[i]);
        file.setHeader<int32_t>(size_t(i), 12, i);
    }
    SegyRemapTable preset;
    QString error;
    ASSERT_TRUE(readRemapFile(QString(MERIDUNE_SOURCE_DIR) + "/resources/remap/source-at-byte-17", &preset, &error));
    LoaderParm parm{save(file)};
    parm.isort = 2;
    parm.iremap = 1;
    parm.indexbuilt = 1;
    Loaded l(parm);
    l.parm.remapTable = preset;
    ASSERT_TRUE(l.open().isGood);
    EXPECT_THAT(l.loader->priList(), ElementsAre("7", "8"));
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(1, 3, 4));
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(0, 2));
}

TEST_F(SegyLoaderTest, ATableWithoutUsableRowsSwitchesTheRemapOff)
{
    LoaderParm parm{save(shots({1}))};
    parm.iremap = 1;
    parm.indexbuilt = 1;
    Loaded l(parm);
    l.parm.remapTable = remapTableFromText("CDP,4I,IEEE,300");
    ASSERT_TRUE(l.open().isGood);
    EXPECT_EQ(l.loader->applyRemap(), 0);
    EXPECT_TRUE(l.loader->remapTable().isEmpty());
}

TEST_F(SegyLoaderTest, EachThingTakenForGrantedIsOneLineWithCountAndFirstTrace)
{
    SegyBuilder file = shots({4});
    for (size_t i = 0; i < 4; ++i) {
        file.setHeader<int32_t>(i, 36, 0);
        file.setHeader<int16_t>(i, 70, i == 2 ? 0 : -10);
        file.setHeader<int16_t>(i, 68, 1);
        if (i >= 1) file.setHeader<int16_t>(i, 108, -200);
    }
    file.setHeader<int16_t>(3, 28, 2);
    file.put<int16_t>(3224, 8);
    LoaderParm parm{save(file)};
    parm.icscale = parm.iescale = 1;
    Loaded l(parm);
    ASSERT_TRUE(l.open().isGood);
    EXPECT_THAT(l.report.assumptions,
                ElementsAre("SegyLoader: sample format code 8 is unknown: samples are taken as 4-byte IEEE"));
    l.report.assumptions.clear();
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(
        l.report.assumptions,
        ElementsAre(
            "SegyLoader: trace id other than 1 in 1 of 4 traces, first in trace 4 (2): not counted as live traces",
            "SegyLoader: coordinate scalar 0 in 1 of 4 traces, first in trace 3 (0): coordinates become 0",
            "SegyLoader: recording delay in ms in 3 of 4 traces, first in trace 2 (-200): the time axis leaves it out",
            "SegyLoader: empty offset in 4 of 4 traces, first in trace 1 (0): all traces are taken to be at offset 0"));
}

TEST_F(SegyLoaderTest, AScalarOfZeroIsNotMentionedWhereItIsNotApplied)
{
    Loaded l({save(shots({2}))});
    ASSERT_TRUE(l.open().isGood);
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.report.assumptions, ElementsAre());
}

TEST_F(SegyLoaderTest, ACutLastTraceIsMentioned)
{
    SegyBuilder file = shots({2});
    file.bytes.resize(file.bytes.size() - 4);
    Loaded l({save(file)});
    ASSERT_TRUE(l.open().isGood);
    EXPECT_TRUE(l.report.hasAssumed("1 trace is cut by the end of the file, trace 2 (248 bytes of 252)"));
}

TEST_F(SegyLoaderTest, TheSignalTellsTheViewsToReadAnew)
{
    for (int indexbuilt : {0, 1}) {
        LoaderParm parm{save(shots({1}))};
        parm.indexbuilt = indexbuilt;
        Loaded l(parm);
        int nSignals = 0;
        ASSERT_TRUE(l.open().isGood);
        QObject::connect(l.loader.get(), &SegyLoader::reLoadData, [&] { ++nSignals; });
        EXPECT_FALSE(l.loader->isLoaded());
        l.loader->dataLoaded();
        EXPECT_EQ(nSignals, 1);
        EXPECT_TRUE(l.loader->isLoaded());
    }
}

TEST_F(SegyLoaderTest, HostAttachedTheStandardWordsAreAddedToTheFlow)
{
    const GlobalRuntime before = globalRuntime;
    globalRuntime = {};
    stHdrClear();
    LoaderParm parm{save(shots({2}))};
    parm.isstandalone = false;
    Loaded l(parm);
    ASSERT_TRUE(l.open().isGood);
    EXPECT_EQ(l.loader->numHeaderWords(), 60);
    EXPECT_EQ(stHdrIndex("CDP"), 14);
    EXPECT_EQ(stHdrIndex("ETA"), 59);
    l.loader->loadNextEnsemble(1);
    EXPECT_EQ(l.loader->getHeaders()[1][stHdrIndex("CHAN")], 2);
    globalRuntime.nth = 33;
    Loaded second(parm);
    ASSERT_TRUE(second.open().isGood);
    EXPECT_EQ(second.loader->numHeaderWords(), 33) << "a host that counts its words is believed";
    second.loader->loadNextEnsemble(1);
    EXPECT_EQ(second.loader->numTraces(), 2);
    globalRuntime = before;
    stHdrClear();
}

TEST_F(SegyLoaderTest, TheWindowsTableHasAllWords)
{
    Loaded l({save(shots({1}))});
    ASSERT_TRUE(l.open().isGood);
    HeaderTable table;
    table.fill(l.loader->headerWords(), l.loader->numHeaderWords());
    EXPECT_EQ(table.count(), 60);
    EXPECT_EQ(table._headerName[3], "FFID    ");
    l.loader->saveHeaders();
}

TEST_F(SegyLoaderTest, AReadErrorEndsTheEnsembleAndKeepsWhatWasRead)
{
    const SegyBuilder file = shots({4});
    Loaded l({save(file)});
    ASSERT_TRUE(l.open().isGood);
    l.loader->SegyData()->openSource(std::make_unique<FailingSource>(file.bytes, int64_t(file.traceStarts[2])), "disk");
    l.loader->SegyData()->setPos(3600);
    EXPECT_TRUE(l.loader->loadNextEnsemble(1));
    EXPECT_THAT(l.firstSamples(), ElementsAre(11, 12));
    EXPECT_TRUE(l.report.has("\nSegyLoader: Error, while reading trace data\n"));
}

TEST_F(SegyLoaderTest, AFileThatWasCutSinceTheIndexGivesFewerTraces)
{
    SegyBuilder file = shots({4});
    LoaderParm parm{save(file)};
    parm.indexbuilt = 1;
    Loaded l(parm);
    ASSERT_TRUE(l.open().isGood);
    std::filesystem::resize_file(parm.files, file.traceStarts[2]);
    EXPECT_TRUE(l.loader->loadNextEnsemble(1));
    EXPECT_THAT(l.firstSamples(), ElementsAre(11, 12));
}

TEST_F(SegyLoaderTest, AFileWithoutTracesGivesAnEmptyEnsemble)
{
    for (int indexbuilt : {0, 1}) {
        LoaderParm parm{save(SegyBuilder(3))};
        parm.indexbuilt = indexbuilt;
        Loaded l(parm);
        ASSERT_TRUE(l.open().isGood);
        EXPECT_TRUE(l.loader->loadNextEnsemble(1));
        EXPECT_EQ(l.loader->numTraces(), 0);
    }
}

TEST_F(SegyLoaderTest, ASampleCountBeyondAllMemoryIsRefused)
{
    LoaderParm parm{save(shots({1}))};
    parm.nsamp = 2000000000;
    Loaded l(parm);
    EXPECT_FALSE(l.open().isGood);
    EXPECT_TRUE(l.report.has("SEGYLOADER: Error, number of samples is too large. value=2000000000"));
}
