/// Reel header, traces and positions of one SEG-Y file.
#include "sources/segydata2.h"
#include "host/signal/bytes.h"
#include "tests/brokenplaces.h"
#include "tests/unit/sources/segybuilder.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

using testing::ElementsAre;
using Floats = std::vector<float>;

static SegyReadParm swapped()
{
    return OpenedSegy::bigEndian();
}

static SegyReadParm variableLength()
{
    SegyReadParm parm = swapped();
    parm.ivariable = 1;
    return parm;
}

static int traceWord(const OpenedSegy& segy, int byte)
{
    int value;
    std::memcpy(&value, segy.buffer.data() + byte, 4);
    return value;
}

TEST(SegyReel, FieldsAreSwappedButRevisionAndFixedFlagAreNot)
{
    SegyBuilder file(7, 1);
    file.put<int32_t>(3200, 11);
    file.put<int32_t>(3204, 12);
    file.put<int32_t>(3208, 13);
    for (int byte = 3212; byte < 3260; byte += 2) file.put<int16_t>(size_t(byte), int16_t(byte));
    file.put<int32_t>(3260, 14);
    file.put<int16_t>(3300, 256);
    file.put<int16_t>(3302, 1);
    OpenedSegy segy(file);
    const segyReel& reel = segy.data.reel;
    EXPECT_EQ(reel.jobid, 11);
    EXPECT_EQ(reel.line, 12);
    EXPECT_EQ(reel.reeln, 13);
    EXPECT_EQ(reel.ntrc, 3212);
    EXPECT_EQ(reel.naux, 3214);
    EXPECT_EQ(reel.nsr, 3216);
    EXPECT_EQ(reel.nsamp, 3220);
    EXPECT_EQ(reel.format, 3224);
    EXPECT_EQ(reel.sort, 3228);
    EXPECT_EQ(reel.measurement, 3254);
    EXPECT_EQ(reel.vibPolarity, 3258);
    EXPECT_EQ(reel.unuse1[0], 14 << 24);
    EXPECT_EQ(reel.rev, 1);
    EXPECT_EQ(reel.fixed, 256);
}

TEST(SegyReel, TextIsTranslatedFromEbcdicUnlessTheFormatSaysItIsAscii)
{
    static const struct {
        int iformat;
        const char* first;
    } cases[] = {{0, "C 1"}, {2, "\xC3\x40\xF1"}, {4, "\xC3\x40\xF1"}};
    for (const auto& c : cases) {
        SegyBuilder file(7);
        std::memcpy(file.bytes.data(), "\xC3\x40\xF1", 3);
        SegyReadParm parm = swapped();
        parm.iformat = c.iformat;
        OpenedSegy segy(file, parm);
        EXPECT_EQ(std::string(segy.data.reel.ebcdic, 3), c.first) << c.iformat;
    }
}

TEST(SegyReel, ItIsToldAsTextAndFields)
{
    SegyBuilder file(500, 1);
    std::memcpy(file.bytes.data() + 80, "\xC3\x00\xF1", 3);  // a control must not reach the terminal
    file.put<int32_t>(3200, 1);
    file.put<int16_t>(3212, 24);
    CollectReport report;
    segyData2 data(swapped(), &report);
    data.openSource(std::make_unique<MemorySource>(file.bytes.data(), file.bytes.size()), "m");
    ASSERT_TRUE(data.reelHeader(true));
    EXPECT_EQ(report.text.find("\nSEGY EBCDIC Header\n------------------\n" + std::string(80, ' ') + "\nC 1"), 0u);
    EXPECT_TRUE(report.has("\n\nSEGY Binary Header\n------------------\n"
                           " Job ID            : 1\n Line Num          : 0\n Reel Num          : 0\n"
                           " Num Traces        : 24\n Num Aux Traces    : 0\n Sample Rate (usec): 2000\n"
                           " Num Samples       : 500\n Sort              : 1\n Data format       : 1\n"
                           " Measurement       : 0\n\n"));
    EXPECT_EQ(std::count(report.text.begin(), report.text.end(), '\n'), 3 + 40 + 3 + 10 + 1);
}

TEST(SegyReel, AFileShorterThanTheReelFailsAndStaysOpen)
{
    SegyBuilder file(7);
    file.bytes.resize(3599);
    OpenedSegy segy(file);
    EXPECT_FALSE(segy.isReelGood);
    EXPECT_TRUE(segy.data.isOpen);
    EXPECT_EQ(segy.report.text, "segyData2: error while reading reel headers: Unexpected end of file\n");
}

TEST(SegyReel, MissingCountAndIntervalComeFromTheFirstTrace)
{
    SegyBuilder file(0);
    file.put<int16_t>(3216, 0);
    file.addTrace(Floats(1500, 1.0f));
    file.setHeader<int16_t>(0, 114, 1500);
    file.setHeader<int16_t>(0, 116, 2000);
    OpenedSegy segy(file);
    EXPECT_TRUE(segy.isReelGood);
    EXPECT_EQ(segy.data.reel.nsamp, 1500);
    EXPECT_EQ(segy.data.numSamples(), 1500);
    EXPECT_EQ(segy.data.reel.nsr, 2000);
    EXPECT_EQ(segy.report.text, "\nsegyData2: WARNING, Incorrect SEGY binary header values.\n"
                                "     attempting to fix sample rate or number of samples\n"
                                "     using the first trace header.\n\n"
                                "segyData2: Warning, fixed no. of samples from first trace header: 1500\n"
                                "segyData2: Warning, fixed sample rate from first trace header: 2000\n");
    EXPECT_GT(segy.read(), 0) << "the position is before the first trace again";
    EXPECT_EQ(segy.sample(1499), 1.0f);
}

TEST(SegyReel, OnlyTheMissingValueIsRepaired)
{
    SegyBuilder file(3);
    file.put<int16_t>(3216, -2);
    file.addTrace(Floats{1, 2, 3});
    file.setHeader<int16_t>(0, 114, 99);
    file.setHeader<int16_t>(0, 116, 4000);
    OpenedSegy segy(file);
    EXPECT_EQ(segy.data.numSamples(), 3);
    EXPECT_EQ(segy.data.reel.nsr, 4000);
    EXPECT_FALSE(segy.report.has("no. of samples from"));
}

TEST(SegyReel, WithoutATraceToRepairFromItIsRefused)
{
    SegyBuilder file(0);
    file.bytes.resize(3600 + 239);
    OpenedSegy segy(file);
    EXPECT_FALSE(segy.isReelGood);
    EXPECT_TRUE(segy.report.has("segyData2: error while reading a trace header to fix reel header: "));
    EXPECT_TRUE(segy.report.has("segyData2: error while reading first trace to fix reel header problems.\n"));
}

TEST(SegyReel, ACountAbove32767IsTakenUnsignedWhenTheFileFitsItExactly)
{
    SegyBuilder file(40000 - 65536);
    file.addTrace(Floats(40000, 0.5f));
    OpenedSegy fits(file);
    EXPECT_EQ(fits.data.numSamples(), 40000);
    EXPECT_TRUE(fits.report.has("\nsegyData2: WARNING, Incorrect SEGY binary header values.\n"));
    EXPECT_TRUE(fits.report.has("taken as unsigned: 40000\n"));
    EXPECT_EQ(fits.read(), 240 + 160000);
    EXPECT_EQ(fits.sample(39999), 0.5f);

    file.bytes.push_back(0);
    OpenedSegy tooLong(file);
    EXPECT_LT(tooLong.data.numSamples(), 1) << "one byte more, and the count is no longer certain";
}

TEST(SegyReel, ATraceWordAbove32767IsTakenUnsignedTheSameWay)
{
    SegyBuilder file(0);
    file.addTrace(Floats(40000, 0.5f));
    file.setHeader<int16_t>(0, 114, int16_t(40000 - 65536));
    OpenedSegy segy(file);
    EXPECT_EQ(segy.data.numSamples(), 40000);
}

TEST(SegyReel, InAFileOfVariableLengthNoCountIsTakenUnsigned)
{
    SegyBuilder file(40000 - 65536);
    file.addTrace(Floats(40000, 0.5f));
    OpenedSegy segy(file, variableLength());
    EXPECT_LT(segy.data.numSamples(), 1);
}

TEST(SegyTrace, EverySampleFormatBecomesAFloat)
{
    struct Case {
        const char* name;
        int format;
        std::vector<uint8_t> raw;  // big-endian, as in the file
        int weight;
        Floats expected;
    };
    const std::vector<Case> cases = {
        {"IBM -118.625 and 1", 1, {0xC2, 0x76, 0xA0, 0x00, 0x41, 0x10, 0x00, 0x00}, 0, {-118.625f, 1.0f}},
        {"4-byte integers", 2, {0xFF, 0xFF, 0xFF, 0xFE, 0x00, 0x01, 0x00, 0x00}, 3, {-2.0f, 65536.0f}},
        {"2-byte integers with weight 2", 3, {0x00, 0x08, 0xFF, 0xFF}, 2, {2.0f, -0.25f}},
        {"2-byte integers with weight -1", 3, {0x00, 0x08, 0xFF, 0xFF}, -1, {16.0f, -2.0f}},
        {"gain: bytes 2, 3 are the value, bytes 0, 1 the gain", 4, {0, 4, 0, 3, 0xFF, 0xFE, 0xFF, 0xFD}, 0, {48, -12}},
        {"IEEE", 5, {0x3F, 0xC0, 0x00, 0x00, 0xC0, 0x00, 0x00, 0x00}, 5, {1.5f, -2.0f}},
        {"1-byte integers", 6, {0x08, 0x80}, 1, {4.0f, -64.0f}},
        {"an unknown code is IEEE", 8, {0x3F, 0xC0, 0x00, 0x00, 0xC0, 0x00, 0x00, 0x00}, 0, {1.5f, -2.0f}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        SegyBuilder file(2, c.format);
        file.addTrace(c.raw);
        file.setHeader<int16_t>(0, 168, int16_t(c.weight));
        OpenedSegy segy(file);
        EXPECT_EQ(segy.read(), 240 + int(c.raw.size()));
        EXPECT_EQ(segy.samples(), c.expected);
        EXPECT_EQ(segy.read(), 0);
    }
}

TEST(SegyTrace, InAFileOfThisMachinesOrderNothingIsSwapped)
{
    SegyBuilder file(2, 4, false);
    file.addTrace(std::vector<int16_t>{3, 4, -3, 2});
    file.setHeader<int32_t>(0, 8, 4711);
    SegyReadParm parm;
    OpenedSegy segy(file, parm);
    EXPECT_GT(segy.read(), 0);
    EXPECT_THAT(segy.samples(), ElementsAre(48.0f, -12.0f));
    EXPECT_EQ(traceWord(segy, 8), 4711);
}

TEST(SegyTrace, TheSwapLeavesBytes196To239AsTheyStand)
{
    SegyBuilder file(1);
    file.addTrace(Floats{1});
    for (int byte = 0; byte < 240; ++byte) file.bytes[3600 + size_t(byte)] = char(byte);
    OpenedSegy segy(file);
    segy.read();
    std::vector<uint8_t> expected(240);
    for (int i = 0; i < 240; ++i) expected[size_t(i)] = uint8_t(i);
    // width of each field: four bytes or two, from the layout of a trace header
    const struct {
        int from, to, width;
    } runs[] = {{0, 28, 4}, {28, 36, 2}, {36, 68, 4}, {68, 72, 2}, {72, 88, 4}, {88, 180, 2}, {180, 196, 4}};
    for (const auto& run : runs)
        for (int i = run.from; i < run.to; i += run.width)
            std::reverse(expected.begin() + i, expected.begin() + i + run.width);
    EXPECT_EQ(std::memcmp(segy.buffer.data(), expected.data(), 240), 0);
}

TEST(SegyTrace, FormatFourSwitchesTheSwapOffForTracesButNotForTheReel)
{
    SegyBuilder file(1);
    file.addTrace(Floats{1});
    file.setHeader<int32_t>(0, 8, 1);
    SegyReadParm parm = swapped();
    parm.iformat = 4;
    OpenedSegy segy(file, parm);
    EXPECT_EQ(segy.data.numSamples(), 1);
    EXPECT_GT(segy.read(), 0);
    EXPECT_EQ(traceWord(segy, 8), 1 << 24);
    EXPECT_NE(segy.sample(0), 1.0f);
}

TEST(SegyTrace, ACutTraceCountsAndReadsAsItsSamplesAndZeros)
{
    SegyBuilder file(4);
    file.addTrace(Floats{1, 2, 3, 4});
    file.addTrace(Floats{5, 6});
    file.bytes.push_back(1);  // a sample's first byte
    OpenedSegy segy(file);
    EXPECT_EQ(segy.read(), 256);
    EXPECT_EQ(segy.read(), 249);
    EXPECT_THAT(segy.samples(), ElementsAre(5, 6, 0, 0));
    EXPECT_EQ(segy.read(), 0);
}

TEST(SegyTrace, ATailShorterThanAHeaderGivesZeroSamples)
{
    SegyBuilder file(2);
    file.addTrace(Floats{1, 2});
    file.setHeader<int32_t>(0, 20, 99);
    file.put<int32_t>(file.bytes.size(), 7);
    OpenedSegy segy(file);
    EXPECT_EQ(segy.read(), 248);
    EXPECT_EQ(segy.read(), 4);
    EXPECT_EQ(traceWord(segy, 0), 7);
    EXPECT_EQ(traceWord(segy, 20), 0) << "header bytes that the file lacks are 0, not those of the trace before";
    EXPECT_THAT(segy.samples(), ElementsAre(0, 0));
}

TEST(SegyTrace, OfVariableLengthShorterOnesArePaddedAndLongerOnesAreSkippedOver)
{
    SegyBuilder file(3);
    file.addTrace(Floats{1, 2});
    file.setHeader<int16_t>(0, 114, 2);
    file.addTrace(Floats{3, 4, 5, 6});
    file.setHeader<int16_t>(1, 114, 4);
    file.addTrace(Floats{7, 8, 9});
    file.setHeader<int16_t>(2, 114, 3);
    OpenedSegy segy(file, variableLength());
    EXPECT_EQ(segy.read(), 248);
    EXPECT_THAT(segy.samples(), ElementsAre(1, 2, 0));
    EXPECT_EQ(segy.read(), 256);
    EXPECT_THAT(segy.samples(), ElementsAre(3, 4, 5));
    EXPECT_EQ(segy.read(), 252);
    EXPECT_THAT(segy.samples(), ElementsAre(7, 8, 9));
    EXPECT_EQ(segy.read(), 0);
    EXPECT_EQ(segy.report.text, "");
}

TEST(SegyTrace, OfVariableLengthWithoutACountIsShorterByItsHeader)
{
    SegyBuilder file(100);
    file.addTrace(Floats(40, 2.0f));  // 100 * 4 - 240 bytes are 40 samples
    file.addTrace(Floats(40, 3.0f));
    OpenedSegy segy(file, variableLength());
    EXPECT_EQ(segy.read(), 400);
    EXPECT_EQ(segy.sample(39), 2.0f);
    EXPECT_EQ(segy.sample(40), 0.0f);
    EXPECT_EQ(segy.read(), 400);
    EXPECT_EQ(segy.sample(39), 3.0f);
}

TEST(SegyTrace, ALengthOfMoreThanFortyTracesIsBadAndSkippedOver)
{
    // 2 samples: a trace has 248 bytes, forty of them 9920; 2481 samples are 9924 bytes
    SegyBuilder file(2);
    file.addTrace(Floats(2481, 1.5f));
    file.setHeader<int16_t>(0, 114, 2481);
    file.setHeader<int32_t>(0, 0, 17);
    file.addTrace(Floats{2.5f, 3.5f});
    file.setHeader<int16_t>(1, 114, 2);
    OpenedSegy segy(file, variableLength());
    EXPECT_EQ(segy.read(), 240 + 8) << "the loader's count of samples is read instead";
    EXPECT_THAT(segy.samples(), ElementsAre(1.5f, 1.5f));
    EXPECT_EQ(segy.report.text, "segyData2: error while reading variable length trace: 17, num samples=2481\n");
    EXPECT_EQ(segy.read(), 248);
    EXPECT_THAT(segy.samples(), ElementsAre(2.5f, 3.5f)) << "the next trace is found at the declared position";
}

TEST(SegyTrace, InPlaceOfABadLengthFourBytesASampleAreReadWhateverTheFormat)
{
    // 100 samples of 2 bytes: a trace has 440 bytes, forty of them 17600; 8801 samples are 17602 bytes
    SegyBuilder file(100, 3);
    file.addTrace(std::vector<int16_t>(8801, 7));
    file.setHeader<int16_t>(0, 114, 8801);
    OpenedSegy segy(file, variableLength());
    EXPECT_EQ(segy.read(), 240 + 400);
    EXPECT_EQ(segy.sample(99), 7.0f);
    EXPECT_EQ(segy.data.getPos(), 3600u + 240u + 17602u);
}

TEST(SegyTrace, TheLongestGoodLengthFitsIntoTheBuffer)
{
    SegyBuilder file(2);
    file.addTrace(Floats(2480, 1.5f));
    file.setHeader<int16_t>(0, 114, 2480);
    file.addTrace(Floats{2.5f, 3.5f});
    file.setHeader<int16_t>(1, 114, 2);
    OpenedSegy segy(file, variableLength());
    EXPECT_EQ(segy.data.maxBytes(), 9920);
    EXPECT_EQ(segy.read(), 240 + 9920);
    EXPECT_EQ(segy.report.text, "");
    EXPECT_EQ(segy.read(), 248);
    EXPECT_THAT(segy.samples(), ElementsAre(2.5f, 3.5f));
}

TEST(SegyTrace, ALengthBelowOneIsBadToo)
{
    SegyBuilder file(10);
    file.addTrace(Floats(10, 1.0f));  // no count: 10 * 4 - 240 is -200
    OpenedSegy segy(file, variableLength());
    EXPECT_EQ(segy.read(), 280);
    EXPECT_TRUE(segy.report.has("variable length trace: 0, num samples=-50\n"));
    EXPECT_EQ(segy.data.getPos(), 3600u + 40u) << "the declared position: 240 - 200 behind the start";
}

TEST(SegyTrace, RawBytesAreKeptForTheRemapBeforeAnySwap)
{
    SegyBuilder file(1);
    file.addTrace(Floats{1});
    file.setHeader<int32_t>(0, 8, 0x01020304);
    SegyReadParm parm = swapped();
    parm.iremap = 1;
    OpenedSegy segy(file, parm);
    segy.read();
    EXPECT_EQ(traceWord(segy, 8), 0x01020304);
    EXPECT_EQ(segy.data.segyRawHeader()[2], 0x04030201);
}

TEST(SegyTrace, AFailingDiskIsToldAndGivesANegativeResult)
{
    SegyBuilder file(2);
    for (int i = 0; i < 3; ++i) {
        file.addTrace(Floats{1, 2});
        file.setHeader<int16_t>(size_t(i), 114, 2);
    }
    const int64_t second = int64_t(file.traceStarts[1]);
    static const struct {
        int ivariable;
        int64_t failsBehind;  // bytes of the second trace that can be read
    } cases[] = {{0, 100}, {1, 100}, {1, 244}};
    for (const auto& c : cases) {
        SegyReadParm parm = swapped();
        parm.ivariable = c.ivariable;
        OpenedSegy segy(file, parm);
        segy.data.openSource(std::make_unique<FailingSource>(file.bytes, second + c.failsBehind), "disk");
        segy.data.setPos(3600);
        EXPECT_EQ(segy.read(), 248);
        EXPECT_LT(segy.read(), 0);
        EXPECT_EQ(segy.report.text, "segyData2: error while reading trace: Input/output error\n");
    }
}

TEST(SegyReel, AFailingDiskIsTold)
{
    const SegyBuilder file(2);
    CollectReport report;
    segyData2 data(swapped(), &report);
    data.openSource(std::make_unique<FailingSource>(file.bytes, 100), "disk");
    EXPECT_FALSE(data.reelHeader(false));
    EXPECT_EQ(report.text, "segyData2: error while reading reel headers: Input/output error\n");
}

TEST(SegyTrace, WithTheTapeFlagNothingIsRead)
{
    SegyReadParm parm = swapped();
    parm.itape = 1;
    CollectReport report;
    segyData2 data(parm, &report);
    EXPECT_FALSE(data.openFile("/no/such/file", true));
    EXPECT_EQ(report.text, "");
    char buffer[4096];
    EXPECT_EQ(data.readTrace(buffer), 0);
    EXPECT_EQ(data.writeTrace(buffer), 0);
}

TEST(SegyFile, OpeningTellsTheNameOrTheSystemsReason)
{
    const QTemporaryDir folder;
    const std::string path = SegyBuilder(2).save(folder.filePath("a.sgy").toStdString());
    CollectReport report;
    segyData2 data(swapped(), &report);
    EXPECT_TRUE(data.openFile(QString::fromStdString(path), true));
    EXPECT_EQ(report.text, "\nOpen for reading, SEGY file: " + path + "\n\n");
    report.text.clear();
    EXPECT_FALSE(data.openFile("/no/such/file", true));
    EXPECT_FALSE(data.isOpen);
    EXPECT_EQ(report.text, "\nsegyData2: open error=No such file or directory\n\n");
    report.text.clear();
    EXPECT_FALSE(data.openFile(folder.path(), true));
    EXPECT_EQ(report.text, "\nsegyData2: open error=Is a directory\n\n");
    EXPECT_TRUE(data.closeFile());
}

/// Writes a reel and traces of 200 samples until something fails, at most 100.
static bool writeFile(const QString& path, QString* error)
{
    CollectReport report;
    SegyReadParm parm = swapped();
    parm.imode = 1;
    segyData2 out(parm, &report);
    bool isWritten = out.openFile(path, true);
    if (isWritten) {
        out.reel.nsamp = 200;
        out.reel.nsr = 4000;
        out.reel.format = 5;
        isWritten = out.reelHeader(false);
        out.setTraceBytes();
        std::vector<char> trace(240 + 4 * 200);
        for (int i = 0; i < 100 && isWritten; ++i) isWritten = out.writeTrace(trace.data()) == int(trace.size());
    }
    isWritten = out.closeFile() && isWritten;
    *error = path + ": " + QString::fromStdString(report.text);
    return isWritten;
}

TEST(SegyFile, AFormerFileStaysWhereNothingCanBeWritten)
{
    const QString found = failureOfWrites("out.sgy", writeFile);
    EXPECT_TRUE(found.isEmpty()) << found.toStdString();
}

TEST(SegyFile, AFormerFileIsReplacedWhenAllIsWritten)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("out.sgy");
    QFile former(path);
    ASSERT_TRUE(former.open(QIODevice::WriteOnly) && former.write("the former file") > 0);
    former.close();
    QString error;
    EXPECT_TRUE(writeFile(path, &error)) << error.toStdString();
    EXPECT_EQ(QFileInfo(path).size(), 3600 + 100 * 1040);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList("out.sgy"));
}

TEST(SegyFile, WhatIsWrittenReadsBackTheSame)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("out.sgy");
    CollectReport report;
    SegyReadParm parm = swapped();
    parm.imode = 1;
    {
        segyData2 out(parm, &report);
        ASSERT_TRUE(out.openFile(path, true));
        EXPECT_EQ(report.text, "\nOpen for writing, SEGY file: " + path.toStdString() + "\n\n");
        std::memset(out.reel.ebcdic, ' ', 3200);
        std::memcpy(out.reel.ebcdic, "C 1", 3);
        out.reel.nsamp = 2;
        out.reel.nsr = 4000;
        out.reel.format = 5;
        ASSERT_TRUE(out.reelHeader(false));
        EXPECT_EQ(out.reel.nsamp, 2) << "the fields are in machine order again";
        EXPECT_EQ(uint8_t(out.reel.ebcdic[0]), 0xC3) << "the text stays in EBCDIC";
        out.setTraceBytes();
        struct {
            char header[240];
            float samples[2];
        } trace = {{}, {1.5f, -2.0f}};
        trace.header[11] = 5;
        EXPECT_EQ(out.writeTrace(&trace), 248);
    }
    CollectReport second;
    segyData2 in(swapped(), &second);
    ASSERT_TRUE(in.openFile(path, false));
    ASSERT_TRUE(in.reelHeader(false));
    in.setTraceBytes();
    EXPECT_EQ(std::string(in.reel.ebcdic, 3), "C 1");
    std::vector<char> buffer(size_t(in.maxBytes()));
    EXPECT_EQ(in.readTrace(buffer.data()), 248);
    float samples[2];
    std::memcpy(samples, buffer.data() + 240, 8);
    EXPECT_EQ(samples[0], 1.5f);
    EXPECT_EQ(samples[1], -2.0f);
    EXPECT_EQ(in.segytrace->ffid, 5) << "the header was written as it stood";
}

TEST(SegyFile, AFileBeyondFourGigabytesIsReachedByIndexAndSequentially)
{
    const QTemporaryDir folder;
    const std::string path = folder.filePath("sparse.sgy").toStdString();
    SegyBuilder(30000).save(path);
    const int64_t record = 240 + 4 * 30000;
    const int64_t nTraces = 5'000'000'000 / record;
    std::filebuf out;
    ASSERT_TRUE(out.open(path, std::ios::in | std::ios::out | std::ios::binary));
    out.pubseekpos(3600 + (nTraces - 1) * record + 8);
    const char ffid[] = {0, 0, 0, 77};
    out.sputn(ffid, 4);
    out.pubseekpos(3600 + nTraces * record - 1);
    out.sputc(0);
    ASSERT_TRUE(out.close());
    CollectReport report;
    segyData2 data(swapped(), &report);
    ASSERT_TRUE(data.openFile(QString::fromStdString(path), false));
    ASSERT_TRUE(data.reelHeader(false));
    data.setTraceBytes();
    ASSERT_TRUE(data.buildMap(false));
    ASSERT_EQ(data.totalTraces(), nTraces);
    EXPECT_EQ(data.mapItem(int(nTraces - 1))->offset, uint64_t(3600 + (nTraces - 1) * record));
    EXPECT_EQ(data.mapItem(int(nTraces - 1))->item[8], 77.0f);
    std::vector<char> buffer(size_t(data.maxBytes()));
    EXPECT_EQ(data.seekTrace(int(nTraces - 1), buffer.data(), true), record);
    EXPECT_EQ(data.segytrace->ffid, 77);
    EXPECT_EQ(data.readTrace(buffer.data()), 0);
    EXPECT_GT(data.getPos(), uint64_t(1) << 32);
}

TEST(SegySeek, WithoutForceThePositionStays)
{
    SegyBuilder file(1);
    for (int i = 0; i < 3; ++i) {
        file.addTrace(Floats{float(i)});
        file.setHeader<int32_t>(size_t(i), 8, 100 + i);
    }
    OpenedSegy segy(file);
    segy.data.buildMap(false);
    segy.data.setPos(3600);
    EXPECT_EQ(segy.data.seekTrace(2, segy.buffer.data(), false), 244);
    EXPECT_EQ(segy.sample(0), 2.0f);
    segy.read();
    EXPECT_EQ(segy.sample(0), 0.0f) << "sequential reading goes on where it was";
    EXPECT_EQ(segy.data.seekTrace(1, segy.buffer.data(), true), 244);
    segy.read();
    EXPECT_EQ(segy.sample(0), 2.0f) << "with force the position is behind the trace";
    EXPECT_EQ(segy.data.seekTrace(3, segy.buffer.data(), true), 0);
    EXPECT_EQ(segy.data.seekTrace(-1, segy.buffer.data(), true), 0);
    EXPECT_EQ(segy.data.seekTracePtr(1), 1);
    EXPECT_EQ(segy.data.getPos(), 3600u + 244u);
    EXPECT_EQ(segy.data.seekTracePtr(3), 0);
    EXPECT_TRUE(segy.data.seekPos(-244));
    EXPECT_EQ(segy.data.getPos(), 3600u);
    EXPECT_FALSE(segy.data.seekPos(-3601));
}

TEST(SegySeek, AValueIsFoundByItsTruncatedKey)
{
    SegyBuilder file(1);
    for (int value : {5, 9, 9}) {
        file.addTrace(Floats{0});
        file.setHeader<int32_t>(file.traceStarts.size() - 1, 20, value);
    }
    OpenedSegy segy(file);
    segy.data.buildMap(false);
    EXPECT_EQ(segy.data.seekTraceValue(9, KeyNumber(6)), 1);
    EXPECT_EQ(segy.data.seekTraceValue(7, KeyNumber(6)), 3);
    segy.data.mapItem(0)->item[2] = 9.9f;
    EXPECT_EQ(segy.data.seekTraceValue(9, KeyNumber(6)), 0);
}

TEST(SegySeek, AnEmptyTraceSectionGivesAnEmptyMap)
{
    OpenedSegy segy((SegyBuilder(5)));
    EXPECT_TRUE(segy.data.buildMap(false));
    EXPECT_EQ(segy.data.totalTraces(), 0);
    EXPECT_EQ(segy.data.seekTraceValue(1, KeyNumber(3)), 0);
    EXPECT_EQ(segy.data.mapItem(0), nullptr);
}

TEST(SegySeek, KeyNumbersHaveTheirSlotsAndNames)
{
    const int keys[] = {4, 5, 6, 7, 9, 86, 48, 49, 3, 1};
    for (int slot = 0; slot < 10; ++slot) {
        EXPECT_EQ(segyData2::getItemKey(KeyNumber(keys[slot])), MapSlot(slot));
        EXPECT_EQ(segyData2::getHeaderName(KeyNumber(keys[slot])), segyData2::itemList[slot]);
    }
    for (int key : {2, 11, 12, 0, -1, 99}) {
        EXPECT_EQ(segyData2::getItemKey(KeyNumber(key)), MapSlot(0)) << key;
        EXPECT_EQ(segyData2::getHeaderName(KeyNumber(key)), "") << key;
    }
}

TEST(SegySeek, SkipFilesIsAlwaysZero)
{
    OpenedSegy segy((SegyBuilder(5)));
    EXPECT_EQ(segy.data.skipFiles(3), 0);
}
