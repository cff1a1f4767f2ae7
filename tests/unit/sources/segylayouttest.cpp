/// Files whose parts don't stand at the usual places: extended text headers, longer trace headers, and samples
/// that no format code names here.
#include "sources/segymapthread.h"
#include "sources/segysamples.h"
#include "tests/testdata.h"
#include "tests/unit/sources/segyloaderfixture.h"

#include <QCoreApplication>

#include <cmath>
#include <cstdlib>
#include <sys/wait.h>

namespace {

struct SampleKind {
    int format, nBytes;
    double lowest, highest;  // what is written besides 0, 1 and -1 or 200
    bool isWeighted;
};

const SampleKind kinds[] = {
    {SegyReal8, 8, -1.5e-3, 2.25e7, false},
    {SegyInteger3, 3, -8388608, 8388607, true},
    {SegyInteger8, 8, -9e15, 9e15, false},
    {SegyUnsigned1, 1, 128, 255, true},
    {SegyUnsigned2, 2, 32768, 65535, true},
    {SegyUnsigned3, 3, 8388608, 16777215, true},
    {SegyUnsigned4, 4, 2147483648.0, 4294967295.0, false},
    {SegyUnsigned8, 8, 9223372036854775808.0, 1.8e19, false},
};

std::vector<double> valuesOf(const SampleKind& kind)
{
    const bool isUnsigned = kind.format != SegyReal8 && kind.format != SegyInteger3 && kind.format != SegyInteger8;
    return {0.0, 1.0, isUnsigned ? 200.0 : -1.0, kind.lowest, kind.highest};
}

/// The bytes of a value, highest first.
std::string bytesOf(const SampleKind& kind, double value)
{
    uint64_t bits;
    if (kind.format == SegyReal8)
        std::memcpy(&bits, &value, 8);
    else
        bits = value < 0.0 ? uint64_t(int64_t(value)) : uint64_t(value);
    std::string bytes;
    for (int i = kind.nBytes - 1; i >= 0; --i) bytes += char(bits >> (8 * i) & 0xff);
    return bytes;
}

/// What a file of the test looks like.
struct Places {
    int nTexts = 0, headerBytes = 240;
    bool isBig = true, isVariable = false;
};

/// 6 traces in 3 records, channel 1 and 2, of 5 samples; trace i begins with its samples turned by i.
SegyBuilder madeFile(const SampleKind& kind, const Places& places)
{
    SegyBuilder file(5, 1, places.isBig);
    file.bytes.resize(3600 + size_t(places.nTexts) * 3200, 'x');
    const std::vector<double> values = valuesOf(kind);
    for (size_t i = 0; i < 6; ++i) {
        file.addHeader();
        file.setHeader<int32_t>(i, 8, 10 + int(i) / 2);
        file.setHeader<int32_t>(i, 12, 1 + int(i) % 2);
        file.setHeader<int16_t>(i, 28, 1);
        file.setHeader<int16_t>(i, 114, int16_t(places.isVariable && i == 3 ? 2 : 5));
        file.setHeader<int16_t>(i, 168, 2);
        file.bytes.resize(file.bytes.size() + size_t(places.headerBytes) - 240, 'y');
        for (size_t j = 0; j < (places.isVariable && i == 3 ? 2u : 5u); ++j) {
            std::string bytes = bytesOf(kind, values[(i + j) % 5]);
            if (!places.isBig) std::reverse(bytes.begin(), bytes.end());
            file.bytes.insert(file.bytes.end(), bytes.begin(), bytes.end());
        }
    }
    return file;
}

SegyReadLayout layoutOf(const SampleKind& kind, const Places& places)
{
    SegyReadLayout layout;
    layout.firstTrace = 3600 + 3200 * places.nTexts;
    layout.headerBytes = places.headerBytes;
    layout.sampleFormat = kind.format;
    layout.byteOrder = places.isBig ? SegyByteOrder::HighestFirst : SegyByteOrder::LowestFirst;
    return layout;
}

/// Whether a converted sample is the one written; half a unit of the last place of a float is its rounding.
bool isSample(float got, const SampleKind& kind, double written)
{
    return got == float(kind.isWeighted ? written / 4.0 : written);  // the weight is 2
}

}  // namespace

class SegyLayoutTest : public SegyLoaderTest
{
};

TEST_F(SegyLayoutTest, EverySampleKindIsReadBehindTextsAndLongHeadersInBothOrders)
{
    for (const SampleKind& kind : kinds)
        for (int nTexts : {0, 2})
            for (int headerBytes : {240, 480, 24240})
                for (bool isBig : {true, false})
                    for (bool isVariable : {false, true})
                        for (int indexbuilt : {0, 1}) {
                            const Places places{nTexts, headerBytes, isBig, isVariable};
                            SCOPED_TRACE(testing::Message() << kind.format << " " << nTexts << " " << headerBytes << " "
                                                            << isBig << isVariable << indexbuilt);
                            Loaded l({.files = save(madeFile(kind, places)),
                                      .isort = 1,
                                      .ivariable = isVariable,
                                      .indexbuilt = indexbuilt});
                            l.parm.layout = layoutOf(kind, places);
                            ASSERT_TRUE(l.open().isGood) << l.report.text;
                            const std::vector<double> values = valuesOf(kind);
                            for (size_t record = 0; record < 3; ++record) {
                                ASSERT_TRUE(l.loader->loadNextEnsemble(1));
                                ASSERT_EQ(l.words("FFID    "), (std::vector<int>(2, 10 + int(record))));
                                ASSERT_EQ(l.words("CHAN    "), (std::vector<int>{1, 2}));
                                for (size_t t = 0; t < 2; ++t)
                                    for (size_t j = 0; j < 5; ++j) {
                                        const size_t i = 2 * record + t;
                                        const bool isThere = !isVariable || i != 3 || j < 2;
                                        const double written = isThere ? values[(i + j) % 5] : 0.0;
                                        ASSERT_TRUE(isSample(l.loader->getTraces()[t][j], kind, written))
                                            << "trace " << i << " sample " << j << ": " << l.loader->getTraces()[t][j];
                                    }
                            }
                            EXPECT_TRUE(l.report.boxes.empty());
                        }
}

TEST_F(SegyLayoutTest, TheMapOfTheBackgroundFollowsToo)
{
    const SampleKind& kind = kinds[1];
    const Places places{1, 480, true, true};
    Loaded l({.files = save(madeFile(kind, places)), .isort = 1, .ivariable = 1});
    l.parm.layout = layoutOf(kind, places);
    ASSERT_TRUE(l.open().isGood);
    l.loader->startIndexBuild()->wait();
    QCoreApplication::processEvents();
    ASSERT_EQ(l.loader->getTotalTraces(), 6);
    // 480 bytes of header and 5 samples of 3 bytes; the fourth trace has 2.
    const std::vector<uint64_t> expected = {6800, 7295, 7790, 8285, 8771, 9266};
    for (size_t i = 0; i < 6; ++i) EXPECT_EQ(l.loader->getMapArray()[i].offset, expected[i]);
    EXPECT_EQ(l.loader->priList(), QStringList({"10", "11", "12"}));
}

TEST_F(SegyLayoutTest, ATraceOfVariableLengthWithoutACountIsShorterByItsWholeHeader)
{
    // 200 samples of 4 bytes less 480: 320 bytes behind each header.
    SegyBuilder file(200, 5);
    for (size_t i = 0; i < 3; ++i) {
        file.addHeader();
        file.setHeader<int32_t>(i, 8, 10 + int(i));
        file.bytes.resize(file.bytes.size() + 240 + 320);
    }
    Loaded l({.files = save(file), .isort = 1, .ivariable = 1, .indexbuilt = 1});
    SegyReadLayout layout;
    layout.headerBytes = 480;
    l.parm.layout = layout;
    ASSERT_TRUE(l.open().isGood);
    EXPECT_EQ(l.loader->priList(), QStringList({"10", "11", "12"}));
    EXPECT_EQ(l.loader->getMapArray()[2].offset, 3600u + 2 * 800);
}

TEST_F(SegyLayoutTest, ACutTraceAndACutHeaderCountAsTraces)
{
    const SampleKind& kind = kinds[1];
    const Places places{1, 480, true, false};
    const SegyBuilder whole = madeFile(kind, places);
    const size_t last = whole.traceStarts.back();
    for (size_t nLeft : {size_t(1), size_t(239), size_t(240), size_t(300), size_t(480), size_t(486), size_t(494)}) {
        SegyBuilder file = whole;
        file.bytes.resize(last + nLeft);
        for (int indexbuilt : {0, 1}) {
            Loaded l({.files = save(file), .isort = 4, .indexbuilt = indexbuilt});
            l.parm.layout = layoutOf(kind, places);
            ASSERT_TRUE(l.open().isGood);
            ASSERT_TRUE(l.loader->loadNextEnsemble(1));
            ASSERT_EQ(l.loader->numTraces(), 6) << nLeft;
            size_t cut = 5;  // in its record, sorted by channel: a header without one comes first
            for (size_t t = 0; indexbuilt && t < 6; ++t)
                if (l.loader->getMapArray()[t].itrace == 5) cut = t;
            const size_t nSamples = nLeft < 480 ? 0 : (nLeft - 480) / 3;
            for (size_t j = 0; j < 5; ++j)
                EXPECT_TRUE(isSample(l.loader->getTraces()[cut][j], kind, j < nSamples ? valuesOf(kind)[j] : 0.0))
                    << nLeft << " " << j;
        }
    }
}

TEST_F(SegyLayoutTest, ACountAbove32767IsMeasuredWithTheLayout)
{
    SegyBuilder file(0, 1);
    file.put<int16_t>(3220, int16_t(uint16_t(40000)));
    file.bytes.resize(3600 + 3200 + 2 * (480 + 40000 * 3));
    Loaded l({.files = save(file)});
    SegyReadLayout layout;
    layout.firstTrace = 6800;
    layout.headerBytes = 480;
    layout.sampleFormat = SegyInteger3;
    l.parm.layout = layout;
    ASSERT_TRUE(l.open().isGood);
    EXPECT_EQ(l.loader->numSamples(), 40000);
}

TEST_F(SegyLayoutTest, PlacesOutsideWhatCanBeAreBounded)
{
    Loaded l({.files = save(shots({2}))});
    SegyReadLayout layout;
    layout.firstTrace = -5;
    layout.headerBytes = 7;
    l.parm.layout = layout;
    ASSERT_TRUE(l.open().isGood);
    EXPECT_TRUE(l.loader->layout().isStandard());
    layout.headerBytes = 1 << 30;
    l.parm.layout = layout;
    ASSERT_TRUE(l.open().isGood);
    EXPECT_EQ(l.loader->layout().headerBytes, 24240);
    layout = SegyReadLayout();
    layout.firstTrace = int64_t(1) << 40;
    l.parm.layout = layout;
    ASSERT_TRUE(l.open().isGood);
    EXPECT_TRUE(l.loader->loadNextEnsemble(1));
    EXPECT_EQ(l.loader->numTraces(), 0) << "there is nothing behind the end";
}

TEST_F(SegyLayoutTest, TheByteOrderGoesBeforeTheType)
{
    SegyBuilder file(3, 5, false);  // EBCDIC text, little-endian numbers
    file.addTrace(Floats{1.5f, -2.5f, 3.5f});
    Loaded l({.files = save(file)});
    SegyReadLayout layout;
    layout.byteOrder = SegyByteOrder::LowestFirst;
    l.parm.layout = layout;
    ASSERT_TRUE(l.open().isGood);
    l.loader->loadNextEnsemble(1);
    EXPECT_EQ(l.firstSamples(), Floats{1.5f});
    EXPECT_EQ(l.loader->getEbcdic(), QByteArray(3200, ' ')) << "the type Standard still reads the text as EBCDIC";
}

/// A plain reader of big-endian bytes for the real files.
static uint64_t numberAt(const std::string& bytes, size_t at, int n)
{
    uint64_t value = 0;
    for (int i = 0; i < n; ++i) value = value << 8 | static_cast<unsigned char>(bytes[at + size_t(i)]);
    return value;
}

static std::string contentOf(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), {});
}

TEST_F(SegyLayoutTest, TheRealFileOfEightByteSamplesHoldsWhatAPlainReaderFinds)
{
    SKIP_WITHOUT_TEST_DATA();
    const std::string name = testDataFile("formats/Format6msb.sgy"), bytes = contentOf(name);
    Loaded l({.files = name, .isort = 5, .nsamp = 75});
    SegyReadLayout layout;
    layout.sampleFormat = SegyReal8;
    l.parm.layout = layout;
    ASSERT_TRUE(l.open().isGood);
    ASSERT_TRUE(l.loader->loadNextEnsemble(1));
    int nTraces = 0, nNonZero = 0;
    size_t start = 3600;
    for (;;) {
        ASSERT_GT(l.loader->numTraces(), 0);
        for (int t = 0; t < l.loader->numTraces(); ++t, ++nTraces, start += 840) {
            EXPECT_EQ(l.word(t, "ILINE_NO"), int(numberAt(bytes, start + 188, 4)));
            for (size_t j = 0; j < 75; ++j) {
                const uint64_t bits = numberAt(bytes, start + 240 + 8 * j, 8);
                double value;
                std::memcpy(&value, &bits, 8);
                ASSERT_EQ(l.loader->getTraces()[t][j], float(value));
                nNonZero += value != 0.0;
            }
        }
        if (nTraces == 414) break;
        l.loader->loadNextEnsemble(1);
    }
    EXPECT_EQ(start, bytes.size());
    EXPECT_GT(nNonZero, 20000);
}

TEST_F(SegyLayoutTest, TheRealFilesOfLongTraceHeadersHoldWhatAPlainReaderFinds)
{
    SKIP_WITHOUT_TEST_DATA();
    for (const auto& [file, nTraces, nSamples] : {std::tuple{"odd-headers/rotated-small-rev2.sgy", 25, 50},
                                                  std::tuple{"odd-headers/trace-header-extension1.sgy", 6, 4}}) {
        const std::string name = testDataFile(file), bytes = contentOf(name);
        ASSERT_EQ(bytes.size(), size_t(3600 + nTraces * (480 + 4 * nSamples)));
        Loaded l({.files = name, .isort = 11, .maxtr = 100, .indexbuilt = 1});
        SegyReadLayout layout;
        layout.headerBytes = 480;
        l.parm.layout = layout;
        ASSERT_TRUE(l.open().isGood);
        ASSERT_EQ(l.loader->getTotalTraces(), nTraces);
        std::vector<float> data(size_t(l.loader->numHeaderWords() + nSamples));
        for (int i = 0; i < nTraces; ++i) {
            const size_t rank = l.loader->getMapArray()[i].itrace;
            const size_t start = 3600 + rank * size_t(480 + 4 * nSamples);
            ASSERT_GT(l.loader->seekTraceConverted(i, data.data(), true), 0);
            EXPECT_EQ(l.word(0, "ILINE_NO"), int(numberAt(bytes, start + 188, 4)));
            EXPECT_EQ(l.word(0, "XLINE_NO"), int(numberAt(bytes, start + 192, 4)));
            for (int j = 0; j < nSamples; ++j) {
                // IBM: sign, exponent of 16 with excess 64, fraction of 24 bits
                const auto word = uint32_t(numberAt(bytes, start + 480 + 4 * size_t(j), 4));
                const double fraction = double(word & 0xffffff) / 16777216.0;
                const double value = (word >> 31 ? -1.0 : 1.0) * fraction * std::pow(16.0, int(word >> 24 & 0x7f) - 64);
                EXPECT_EQ(data[size_t(l.loader->numHeaderWords() + j)], float(value));
            }
        }
    }
}

TEST_F(SegyLayoutTest, BehindExtendedTextHeadersStandTheTracesThatSegyioFinds)
{
    SKIP_WITHOUT_TEST_DATA();
    for (const auto& [file, nTexts, nTraces, nSamples] : {std::tuple{"odd-headers/multi-text.sgy", 4, 1, 1},
                                                          std::tuple{"odd-headers/stanzas-known-count.sgy", 3, 6, 4}}) {
        const std::string name = testDataFile(file), out = _folder.filePath("dump").toStdString();
        const std::string command = std::string("/usr/bin/python3 '") + MERIDUNE_SOURCE_DIR +
                                    "/tests/data/segyio_dump.py' '" + name + "' '" + out + "' big 2>/dev/null";
        const int status = std::system(command.c_str());
        if (!WIFEXITED(status) || WEXITSTATUS(status) == 3 || WEXITSTATUS(status) == 127)
            GTEST_SKIP() << "python3-segyio is not installed";
        ASSERT_EQ(WEXITSTATUS(status), 0);
        const std::string dump = contentOf(out);
        const auto wordOf = [&](size_t i) {
            int32_t value;
            std::memcpy(&value, &dump[4 * i], 4);
            return value;
        };
        const size_t nFields = size_t(wordOf(2));
        ASSERT_EQ(wordOf(0), nTraces);
        ASSERT_EQ(wordOf(1), nSamples);
        Loaded l({.files = name, .isort = 5, .indexbuilt = 0});
        SegyReadLayout layout;
        layout.firstTrace = 3600 + 3200 * nTexts;
        l.parm.layout = layout;
        ASSERT_TRUE(l.open().isGood);
        int i = 0;
        for (l.loader->loadNextEnsemble(1); l.loader->numTraces() > 0; l.loader->loadNextEnsemble(1))
            for (int t = 0; t < l.loader->numTraces(); ++t, ++i) {
                const size_t at = 3 + size_t(i) * (nFields + size_t(nSamples));
                EXPECT_EQ(l.word(t, "TRACENO "), wordOf(at));
                EXPECT_EQ(l.word(t, "ILINE_NO"), wordOf(at + nFields - 2));
                EXPECT_EQ(l.word(t, "XLINE_NO"), wordOf(at + nFields - 1));
                for (int j = 0; j < nSamples; ++j) {
                    float value;
                    std::memcpy(&value, &dump[4 * (at + nFields + size_t(j))], 4);
                    EXPECT_EQ(l.loader->getTraces()[t][j], value);
                }
            }
        EXPECT_EQ(i, nTraces);
    }
}
