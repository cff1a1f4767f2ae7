/// The trace map: its build by headers alone against the plain loop over whole traces, and its sort.
#include "sources/segymap.h"
#include "host/progresssink.h"
#include "sources/segyheader.h"
#include "tests/unit/sources/segybuilder.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>

using Floats = std::vector<float>;

namespace {

/// The map as the plain loop makes it: each trace read whole, converted, remapped.
std::vector<segyMapItem> plainMap(OpenedSegy* segy)
{
    std::vector<segyMapItem> items;
    const SegyReadParm parm = segy->data.parm();
    std::vector<int> words(60);
    SegyHeader header(reinterpret_cast<int*>(segy->buffer.data()), words.data(), 60);
    header.setTreviaVersion(1);
    header.applyScalars(parm.icscale != 0, parm.icscale != 0);
    int index[SegyHeader::nMappedWords];
    header.buildHeaderIndex(index);
    const auto rows = header.buildRemapIndex(parm.remapTable);
    header.setSegyRawHeader(segy->data.segyRawHeader());
    segy->data.setPos(3600);
    for (;;) {
        segyMapItem item = {};
        item.itrace = uint32_t(items.size());
        item.offset = segy->data.getPos();
        if (segy->read() < 1) break;
        header.convertSegyToOrvinFast(index);
        if (parm.iremap) header.performRemapFast(rows, parm.iswap);
        header.loadTraceMap(item.item);
        items.push_back(item);
    }
    segy->data.tellRepeated();
    return items;
}

void expectSameMap(const SegyBuilder& file, const SegyReadParm& parm)
{
    OpenedSegy plain(file, parm), fast(file, parm);
    plain.report.text.clear();
    fast.report.text.clear();
    const std::vector<segyMapItem> expected = plainMap(&plain);
    ASSERT_TRUE(fast.data.buildMap(false));
    ASSERT_EQ(fast.data.totalTraces(), int(expected.size()));
    for (size_t i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE(i);
        ASSERT_EQ(std::memcmp(fast.data.mapItem(int(i)), &expected[i], sizeof(segyMapItem)), 0);
    }
    EXPECT_EQ(fast.report.text, plain.report.text);
}

void fillHeader(SegyBuilder* file, size_t iTrace, std::mt19937* random)
{
    for (size_t byte = 0; byte < 240; ++byte)
        if (byte != 114 && byte != 115) file->bytes[file->traceStarts[iTrace] + byte] = char((*random)());
}

SegyReadParm parmOf(bool isVariable, bool isSwapped, int icscale, const char* remap)
{
    SegyReadParm parm;
    parm.ivariable = isVariable;
    parm.iswap = isSwapped;
    parm.icscale = icscale;
    parm.iremap = remap != nullptr;
    if (remap) parm.remapTable = remapTableFromText(remap);
    return parm;
}

struct CountingSink : ProgressSink {
    std::string title, label;
    int largest = -1;
    std::vector<int> values;
    int stopAfter = -1;
    void begin(const std::string& t, const std::string& l) override { title = t, label = l; }
    void setRange(int, int n) override { largest = n; }
    void step(int value) override { values.push_back(value); }
    bool cancelled() const override { return stopAfter >= 0; }
};

}  // namespace

TEST(SegyMapBuild, GivesTheItemsOfThePlainLoopOnFixedLength)
{
    std::mt19937 random(1);
    for (bool isSwapped : {true, false})
        for (int icscale : {0, 1})
            for (const char* remap : {(const char*)nullptr, "CDP,4I,IEEE,9\nSOU_X,4R,IBM,73\nFFID,2I,IEEE,115"})
                for (int nTail : {0, 3, 239, 240, 250}) {
                    SegyBuilder file(5, 1, isSwapped);
                    for (size_t i = 0; i < 30; ++i) {
                        file.addTrace(Floats{1, 2, 3, 4, 5});
                        fillHeader(&file, i, &random);
                    }
                    file.bytes.resize(file.bytes.size() + size_t(nTail), 1);
                    expectSameMap(file, parmOf(false, isSwapped, icscale, remap));
                }
}

TEST(SegyMapBuild, GivesTheItemsAndLinesOfThePlainLoopOnVariableBadAndCutFiles)
{
    std::mt19937 random(2);
    for (int trial = 0; trial < 60; ++trial) {
        SCOPED_TRACE(trial);
        const int format = trial % 3 == 0 ? 3 : trial % 3 == 1 ? 6 : 5;
        const int nBytes = format == 3 ? 2 : format == 6 ? 1 : 4;
        SegyBuilder file(70, format);
        for (size_t i = 0; i < 25; ++i) {
            file.addHeader();
            fillHeader(&file, i, &random);
            const int kind = int(random() % 8);
            // 0: no count, 1: a negative one, 2: more than the buffer holds, 3: more than forty traces, else good
            const int nsamp = kind == 0   ? 0
                              : kind == 1 ? -5
                              : kind == 2 ? 70 * 40
                              : kind == 3 ? 30000
                                          : int(random() % 200) + 1;
            file.setHeader<int16_t>(i, 114, int16_t(nsamp));
            const int nPresent = nsamp > 0 ? nsamp * nBytes : std::max(0, 70 * nBytes - 240);
            file.bytes.resize(file.bytes.size() + size_t(nPresent), char(trial));
        }
        file.bytes.resize(file.bytes.size() - random() % 400);
        expectSameMap(file, parmOf(true, true, 1, trial % 2 ? nullptr : "CDP,4I,IEEE,9"));
    }
}

TEST(SegyMapBuild, GivesTheSameForLongRecordsReadHeaderByHeader)
{
    std::mt19937 random(3);
    for (bool isVariable : {false, true}) {
        SegyBuilder file(4500);  // 18240 bytes a record
        for (size_t i = 0; i < 40; ++i) {
            const int n = isVariable ? 4500 - int(random() % 3) * 1000 : 4500;
            file.addTrace(Floats(size_t(n), 1.0f));
            fillHeader(&file, i, &random);
            file.setHeader<int16_t>(i, 114, int16_t(n));
        }
        file.bytes.resize(file.bytes.size() - 100);
        expectSameMap(file, parmOf(isVariable, true, 1, nullptr));
    }
}

TEST(SegyMapBuild, GivesTheSameFromAFileAsFromMemory)
{
    const QTemporaryDir folder;
    std::mt19937 random(4);
    for (int nsamp : {100, 5000}) {
        SegyBuilder file(nsamp);
        const size_t nTraces = nsamp == 100 ? 5000 : 300;
        for (size_t i = 0; i < nTraces; ++i) {
            file.addTrace(Floats(size_t(nsamp), 1.0f));
            fillHeader(&file, i, &random);
        }
        const std::string path = file.save(folder.filePath("a.sgy").toStdString());
        OpenedSegy memory(file);
        memory.data.buildMap(false);
        CollectReport report;
        segyData2 data(OpenedSegy::bigEndian(), &report);
        ASSERT_TRUE(data.openFile(QString::fromStdString(path), false));
        ASSERT_TRUE(data.reelHeader(false));
        data.setTraceBytes();
        ASSERT_TRUE(data.buildMap(false));
        ASSERT_EQ(data.totalTraces(), int(nTraces));
        EXPECT_EQ(std::memcmp(data.map().items(), memory.data.map().items(), nTraces * sizeof(segyMapItem)), 0);
    }
}

TEST(SegyMapBuild, HostAttachedWithTooFewWordsReadsNothingOutsideThem)
{
    SegyBuilder file(1);
    file.addTrace(Floats{1});
    SegyReadParm parm = OpenedSegy::bigEndian();
    parm.istandalone = 0;
    parm.nHeaderWords = 3;
    OpenedSegy segy(file, parm);
    EXPECT_TRUE(segy.data.buildMap(false));
    EXPECT_EQ(segy.data.totalTraces(), 1);
}

TEST(SegyMapBuild, ASecondBuildAppendsEveryTraceOnceMore)
{
    SegyBuilder file(1);
    for (int i = 0; i < 3; ++i) file.addTrace(Floats{1});
    OpenedSegy segy(file);
    segy.data.buildMap(false);
    segy.data.buildMap(false);
    ASSERT_EQ(segy.data.totalTraces(), 6);
    EXPECT_EQ(segy.data.mapItem(3)->itrace, 3u);
    EXPECT_EQ(segy.data.mapItem(3)->offset, 3600u);
}

TEST(SegyMapBuild, ATableWithoutAUsableRowSwitchesTheRemapOff)
{
    SegyBuilder file(1);
    file.addTrace(Floats{1});
    OpenedSegy segy(file, parmOf(false, true, 0, "CDP,4I,IEEE,241"));
    segy.data.buildMap(false);
    EXPECT_TRUE(segy.data.isRemapRejected());
    EXPECT_EQ(segy.data.parm().iremap, 0);
    OpenedSegy good(file, parmOf(false, true, 0, "CDP,4I,IEEE,9"));
    good.data.buildMap(false);
    EXPECT_FALSE(good.data.isRemapRejected());
}

TEST(SegyMapBuild, TheOneSwitchOfTheMapScalesCoordinates)
{
    for (int icscale : {0, 1}) {
        SegyBuilder file(1);
        file.addTrace(Floats{1});
        file.setHeader<int16_t>(0, 70, -10);
        file.setHeader<int32_t>(0, 72, 125);
        SegyReadParm parm = OpenedSegy::bigEndian();
        parm.icscale = icscale;
        OpenedSegy segy(file, parm);
        segy.data.buildMap(false);
        EXPECT_FLOAT_EQ(segy.data.mapItem(0)->item[12], icscale ? 12.5f : 125.0f);
    }
}

TEST(SegyMapBuild, ProgressRisesByOneForEachThousandTraces)
{
    SegyBuilder file(1);
    file.bytes.resize(3600 + 244 * 2003);
    CountingSink sink;
    CollectReport report;
    segyData2 data(OpenedSegy::bigEndian(), &report, &sink);
    data.openSource(std::make_unique<MemorySource>(file.bytes.data(), file.bytes.size()), "shots.sgy");
    data.reelHeader(false);
    data.setTraceBytes();
    EXPECT_TRUE(data.buildMap(true));
    EXPECT_EQ(sink.title, "Read SEGY File");
    EXPECT_EQ(sink.label, "File: shots.sgy\n\nBuilding Index Map ......... Please Wait");
    EXPECT_EQ(sink.largest, 2);
    EXPECT_THAT(sink.values, testing::ElementsAre(0, 1, 2));  // before traces 0, 1001, 2002
    sink.values.clear();
    data.buildMap(false);
    EXPECT_TRUE(sink.values.empty());
    sink.stopAfter = 0;
    EXPECT_FALSE(data.buildMap(false)) << "a sink that wants to stop is heard";
}

TEST(SegyMapBuild, OfFixedLengthTheMapIsMadeInOnePieceAndFits)
{
    SegyBuilder file(1);
    file.bytes.resize(3600 + 244 * 3001 - 7);
    OpenedSegy segy(file);
    segy.data.buildMap(false);
    EXPECT_EQ(segy.data.totalTraces(), 3001);
    EXPECT_EQ(segy.data.map().capacity(), 3001);
}

static std::vector<segyMapItem> randomItems(int n, int nValues, std::mt19937* random)
{
    std::vector<segyMapItem> items(size_t(n), segyMapItem{});
    const float special[] = {NAN, -0.0f, 0.0f, INFINITY, -INFINITY, -1e-40f, std::numeric_limits<float>::max(), -NAN};
    for (int i = 0; i < n; ++i) {
        items[size_t(i)].itrace = uint32_t(i);
        for (float& key : items[size_t(i)].item) {
            const uint32_t draw = (*random)();
            key = draw % 16 == 0 ? special[draw / 16 % 8] : float(int(draw % uint32_t(nValues)) - nValues / 2) * 0.5f;
        }
    }
    return items;
}

TEST(SegyMapSort, EqualsAStableSortWithTheToldComparison)
{
    std::mt19937 random(5);
    for (int n : {0, 1, 2, 3, 100, 5000})
        for (int nValues : {1, 3, 1000, 1 << 24}) {
            SCOPED_TRACE(testing::Message() << n << " items, " << nValues << " values");
            std::vector<segyMapItem> items = randomItems(n, nValues, &random);
            std::vector<segyMapItem> expected = items;
            std::stable_sort(expected.begin(), expected.end(), [](const segyMapItem& a, const segyMapItem& b) {
                return segyMapCompare(a, b, MapSlot(8), MapSlot(4)) < 0;
            });
            sortSegyMap(items.data(), n, MapSlot(8), MapSlot(4));
            ASSERT_EQ(n == 0 || std::memcmp(items.data(), expected.data(), size_t(n) * sizeof(segyMapItem)) == 0, true);
        }
}

TEST(SegyMapSort, EqualKeysStandInFileOrderAfterAnySequenceOfSorts)
{
    std::mt19937 random(9);
    for (bool hasGaps : {false, true}) {
        std::vector<segyMapItem> items(500);
        for (size_t i = 0; i < items.size(); ++i) {
            items[i] = {};
            items[i].itrace = uint32_t(hasGaps ? 3 * i + 7 : i);
            for (float& key : items[i].item) key = float(random() % 5);
        }
        for (int change = 0; change < 30; ++change) {
            const int first = int(random() % 16), second = int(random() % 16);
            sortSegyMap(items.data(), int(items.size()), MapSlot(first), MapSlot(second));
            for (size_t i = 1; i < items.size(); ++i) {
                const int order = segyMapCompare(items[i - 1], items[i], MapSlot(first), MapSlot(second));
                ASSERT_LE(order, 0);
                ASSERT_TRUE(order < 0 || items[i - 1].itrace < items[i].itrace) << "sort " << change;
            }
        }
    }
}

TEST(SegyMapSort, EveryPermutationOfAFewItemsComesIntoOrder)
{
    for (int n = 0; n <= 7; ++n) {
        std::vector<int> order(static_cast<size_t>(n));
        std::iota(order.begin(), order.end(), 0);
        do {
            std::vector<segyMapItem> items(order.size());
            for (size_t i = 0; i < items.size(); ++i)
                items[i].item[0] = float(order[i]), items[i].itrace = uint32_t(order[i]);
            sortSegyMap(items.data(), n, MapSlot(0), MapSlot(1));
            for (int i = 0; i < n; ++i)
                ASSERT_EQ(items[size_t(i)].itrace, uint32_t(i)) << testing::PrintToString(order);
        } while (std::next_permutation(order.begin(), order.end()));
    }
}

TEST(SegyMapSort, CyclesOfEachLengthComeIntoOrder)
{
    // Each run of so many items is shifted by one; the last run may be shorter.
    for (int n : {16, 17, 31, 33, 100, 1000})
        for (int length : {2, 3, 15, 16, 17, n}) {
            if (length > n) continue;
            std::vector<segyMapItem> items(static_cast<size_t>(n));
            for (int i = 0; i < n; ++i) {
                const int first = i / length * length, size = std::min(length, n - first);
                items[size_t(i)].itrace = uint32_t(first + (i - first + 1) % size);
                items[size_t(i)].item[0] = float(items[size_t(i)].itrace);
            }
            sortSegyMap(items.data(), n, MapSlot(0), MapSlot(1));
            for (int i = 0; i < n; ++i)
                ASSERT_EQ(items[size_t(i)].itrace, uint32_t(i)) << n << " in cycles of " << length;
        }
}

TEST(SegyMapSort, TheComparisonTakesThePrimaryThenTheSecondaryKeyAndPutsNanLast)
{
    const auto item = [](float primary, float secondary) {
        segyMapItem made = {};
        made.item[2] = primary;
        made.item[4] = secondary;
        return made;
    };
    const auto compare = [](const segyMapItem& a, const segyMapItem& b) {
        return segyMapCompare(a, b, MapSlot(2), MapSlot(4));
    };
    EXPECT_EQ(compare(item(1, 9), item(2, 0)), -1);
    EXPECT_EQ(compare(item(2, 0), item(1, 9)), 1);
    EXPECT_EQ(compare(item(1, 3), item(1, 2)), 1);
    EXPECT_EQ(compare(item(1, 2), item(1, 3)), -1);
    EXPECT_EQ(compare(item(1, 2), item(1, 2)), 0);
    EXPECT_EQ(compare(item(-0.0f, 2), item(0.0f, 2)), 0);
    EXPECT_EQ(compare(item(NAN, 0), item(INFINITY, 0)), 1);
    EXPECT_EQ(compare(item(-INFINITY, 0), item(NAN, 0)), -1);
    EXPECT_EQ(compare(item(NAN, 1), item(NAN, 2)), -1);
}

TEST(SegyMapSort, KeysTruncateTowardsZeroAndClamp)
{
    EXPECT_EQ(segyKeyValue(2.9f), 2);
    EXPECT_EQ(segyKeyValue(-2.9f), -2);
    EXPECT_EQ(segyKeyValue(NAN), 0);
    EXPECT_EQ(segyKeyValue(3e9f), 2147483647);
    EXPECT_EQ(segyKeyValue(-INFINITY), -2147483647 - 1);
}

TEST(SegyMapMemory, NeverMoreThan96BytesATraceAtAnyStepOfGrowth)
{
    SegyMap map;
    for (int i = 0; i < 300000; ++i) {
        ASSERT_NE(map.append(), nullptr);
        if (i > 20000) {
            ASSERT_LE(double(map.capacity()) * sizeof(segyMapItem), 96.0 * (i + 1)) << i;
        }
    }
    map.shrinkToFit();
    EXPECT_EQ(map.capacity(), map.count());
}
