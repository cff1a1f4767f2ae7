/// The guess of a layout: byte order, format, text, place and length of the traces, on files that the test has made.
#include "sources/segyloader.h"
#include "tests/unit/sources/segyguessfixture.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

TEST(SegyGuess, IbmAndIeeeAreToldApartByTheirBitsAtEveryAmplitudeAgainstTheCode)
{
    for (int decade = -6; decade <= 9; ++decade)
        for (bool isBigEndian : {true, false})
            for (int code : {1, 5}) {
                SCOPED_TRACE(testing::Message() << "1e" << decade << " big " << isBigEndian << " code " << code);
                const double amplitude = std::pow(10.0, decade);
                const SegyGuess ibm = guessOf(noiseFile(code, isBigEndian, amplitude, ibmBits).bytes);
                EXPECT_EQ(ibm.parm.iformat, ChooseIbm) << fact(ibm, "Sample format").evidence;
                EXPECT_EQ(ibm.parm.itype, isBigEndian ? 0 : 1);
                const SegyGuess ieee = guessOf(noiseFile(code, isBigEndian, amplitude, ieeeBits).bytes);
                EXPECT_EQ(ieee.parm.iformat, ChooseIeee) << fact(ieee, "Sample format").evidence;
                const bool isAgainst = fact(ieee, "Sample format").choice.find("against the code") != std::string::npos;
                EXPECT_EQ(isAgainst, code == 1);
            }
}

TEST(SegyGuess, TheHistogramCountsWhatNormalisedIbmNumbersNeverHave)
{
    // Bit 23 is 0 in the first three, and bits 22 to 20 as well in the first; then bit 23 at 1, a zero, an
    // infinite.
    const uint32_t words[] = {0x42012345, 0x42112345, 0x43712345, 0x42f12345, 0x80000000, 0x7f800000};
    const SegySampleStatistics counts = countSegyWords(words, 6);
    EXPECT_EQ(counts.nSamples, 6);
    EXPECT_EQ(counts.nNonZero, 5);
    EXPECT_EQ(counts.nEven, 3);
    EXPECT_EQ(counts.nUnnormalised, 1);
    EXPECT_EQ(counts.nNotFinite, 1);
    EXPECT_EQ(counts.nSmallInteger, 0);
    EXPECT_EQ(counts.nEvenExponents, 2);  // 0x84 and 0x86
    EXPECT_EQ(segySampleKind(counts), SegySampleKind::Undecided) << "too few";
}

TEST(SegyGuess, SamplesWithinOneOctaveAreLeftToTheCode)
{
    // 2304 to 4000 as IEEE never has zeros there either: nothing tells it from IBM.
    for (int code : {1, 5}) {
        SegyBuilder file(50, code);
        for (size_t i = 0; i < 12; ++i) {
            std::vector<float> samples(50);
            for (size_t j = 0; j < 50; ++j) samples[j] = 2304.0f + float(i * 50 + j) * 2.5f;
            file.addTrace(samples);
            fillHeader(&file, i, 1, 1 + int(i), 50);
        }
        const SegyGuess guess = guessOf(file.bytes);
        EXPECT_EQ(guess.parm.iformat, code == 1 ? ChooseIbm : ChooseIeee);
        EXPECT_NE(fact(guess, "Sample format").choice.find("by the code alone"), std::string::npos);
    }
}

TEST(SegyGuess, IntegersOfEachWidthAreFoundInBothByteOrders)
{
    for (bool isBigEndian : {true, false}) {
        SCOPED_TRACE(isBigEndian);
        Noise noise;
        SegyBuilder four(50, 1, isBigEndian), two(50, 3, isBigEndian), one(50, 8, isBigEndian);
        for (size_t i = 0; i < 24; ++i) {
            std::vector<int32_t> a(50);
            std::vector<int16_t> b(50);
            std::vector<int8_t> c(50);
            for (size_t j = 0; j < 50; ++j) {
                const double value = noise.next();
                a[j] = int32_t(value * 1000.0);
                b[j] = int16_t(value * 1000.0);
                c[j] = int8_t(value * 10.0);
            }
            four.addTrace(a);
            two.addTrace(b);
            one.addTrace(c);
            for (SegyBuilder* file : {&four, &two, &one}) fillHeader(file, i, 1 + int(i) / 6, 1 + int(i) % 6, 50);
        }
        const SegyGuess of4 = guessOf(four.bytes), of2 = guessOf(two.bytes), of1 = guessOf(one.bytes);
        EXPECT_EQ(of4.parm.iformat, ChooseInteger4)
            << "whatever the code says: " << fact(of4, "Sample format").evidence;
        EXPECT_EQ(of2.parm.iformat, ChooseInteger2);
        EXPECT_EQ(of1.parm.iformat, ChooseInteger1);
        for (const SegyGuess* guess : {&of4, &of2, &of1}) {
            EXPECT_EQ(guess->parm.itype, isBigEndian ? 0 : 1);
            EXPECT_EQ(guess->search.layout.nTraces, 24);
        }
    }
}

TEST(SegyGuess, LoudIntegersAreNoFloats)
{
    // Their first bytes are no more all 00 and FF; amplitudes of 24-bit field data moved up by a byte.
    for (double amplitude : {1e7, 2e7, 1e8, 3e8})
        for (bool isBigEndian : {true, false})
            for (int code : {2, 5}) {
                SCOPED_TRACE(testing::Message() << amplitude << " big " << isBigEndian << " code " << code);
                const auto bits = [](double value) { return uint32_t(int32_t(value)); };
                const SegyGuess guess = guessOf(noiseFile(code, isBigEndian, amplitude, bits).bytes);
                EXPECT_EQ(guess.parm.iformat, ChooseInteger4) << fact(guess, "Sample format").evidence;
            }
}

TEST(SegyGuess, FloatsThatWouldCoverMoreThanEightyOctavesAreLeftToTheCode)
{
    // Positive integers that spread evenly up to 1e9: by their bits floats from 1e-38 to 1e-3.
    const auto bits = [](double value) { return uint32_t(int64_t(std::fabs(value) * 1e6) % 1000 * 1000003); };
    for (int code : {2, 5}) {
        const SegyGuess guess = guessOf(noiseFile(code, true, 1.0, bits).bytes);
        EXPECT_EQ(guess.parm.iformat, code == 2 ? ChooseInteger4 : ChooseIeee);
        EXPECT_NE(fact(guess, "Sample format").choice.find("by the code alone"), std::string::npos)
            << fact(guess, "Sample format").evidence;
    }
}

TEST(SegyGuess, TheHistogramHoldsTheSignsApart)
{
    // Exponents of 20 words each: 0x02 without sign, 0xfc with it; as floats 0x82 with both.
    std::vector<uint32_t> integers, floats;
    for (uint32_t i = 0; i < 20; ++i) {
        integers.insert(integers.end(), {0x01000001 + i, 0xfe000001 + i});
        floats.insert(floats.end(), {0x41000001 + i, 0xc1000001 + i});
    }
    EXPECT_EQ(countSegyWords(integers.data(), 40).nNegative, 20);
    EXPECT_DOUBLE_EQ(countSegyWords(integers.data(), 40).signContrast, 250.0);
    EXPECT_EQ(countSegyWords(integers.data(), 40).exponentSpan, 250);
    EXPECT_DOUBLE_EQ(countSegyWords(integers.data(), 38).signContrast, 0.0) << "19 of each are too few";
    EXPECT_DOUBLE_EQ(countSegyWords(floats.data(), 40).signContrast, 0.0);
    EXPECT_EQ(countSegyWords(floats.data(), 40).exponentSpan, 0);
}

TEST(SegyGuess, CodeSixIsOneByteOrEightByWhereTheHeadersStand)
{
    SegyBuilder one(40, 6), eight(40, 6);
    for (size_t i = 0; i < 8; ++i) {
        one.addTrace(std::vector<int8_t>(40, int8_t(i + 1)));
        eight.addTrace(std::vector<double>(40, 1.0 + double(i)));
        fillHeader(&one, i, 1, int(i) + 1, 40);
        fillHeader(&eight, i, 1, int(i) + 1, 40);
    }
    EXPECT_EQ(guessOf(one.bytes).parm.iformat, ChooseInteger1);
    const SegyGuess guess = guessOf(eight.bytes, oddSettings());
    EXPECT_EQ(guess.verdict, SegyGuess::Read);
    EXPECT_EQ(guess.parm.layout.sampleFormat, SegyReal8);
    EXPECT_EQ(guess.parm.nsamp, 40);
}

TEST(SegyGuess, AnUnknownCodeIsLeftToTheSamples)
{
    EXPECT_EQ(guessOf(noiseFile(0, true, 3.0, ibmBits).bytes).parm.iformat, ChooseIbm);
    EXPECT_EQ(guessOf(noiseFile(77, false, 3.0, ieeeBits).bytes).parm.iformat, ChooseIeee);
    SegyBuilder zeros(10, 0);
    for (size_t i = 0; i < 4; ++i) {
        zeros.addTrace(std::vector<float>(10));
        fillHeader(&zeros, i, 1, int(i) + 1, 10);
    }
    const SegyGuess guess = guessOf(zeros.bytes);
    EXPECT_EQ(guess.parm.iformat, 0);
    EXPECT_NE(fact(guess, "Sample format").choice.find("undecidable"), std::string::npos);
}

TEST(SegyGuess, TheByteOrderConstantIsHeard)
{
    for (bool isBigEndian : {true, false}) {
        SegyBuilder file = smallFile(isBigEndian);
        EXPECT_EQ(fact(guessOf(file.bytes), "Byte order").evidence.find("constant"), std::string::npos);
        file.put<int32_t>(3296, 0x01020304);
        const std::string evidence = fact(guessOf(file.bytes), "Byte order").evidence;
        const std::string end = isBigEndian ? "constant says big-endian" : "constant says little-endian";
        EXPECT_NE(evidence.find(end), std::string::npos) << evidence;
    }
}

TEST(SegyGuess, TheTextHeaderIsKnownByItsLetters)
{
    const std::string client = "\xC3\xD3\xC9\xC5\xD5\xE3\x40";  // CLIENT in EBCDIC
    const auto manyTimes = [](const std::string& word) {
        std::string text;
        for (int i = 0; i < 20; ++i) text += word;
        return text;
    };
    const struct {
        std::string text;
        const char* choice;
    } cases[] = {{manyTimes(client), "EBCDIC"},
                 {manyTimes("CLIENT "), "ASCII"},
                 {client, "blank (EBCDIC), but for a few letters"},
                 {"", "blank (EBCDIC)"},
                 {std::string(3200, ' '), "blank (ASCII)"},
                 {std::string(3200, '\0'), "all NUL"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.choice);
        const bool isAscii = std::string(c.choice).find("ASCII") == 0;
        std::string text(3200, isAscii ? ' ' : '\x40');
        std::copy(c.text.begin(), c.text.end(), text.begin());
        SegyBuilder big = smallFile(true), little = smallFile(false);
        std::copy(text.begin(), text.end(), big.bytes.begin());
        std::copy(text.begin(), text.end(), little.bytes.begin());
        const std::string standard = fact(guessOf(big.bytes), "Text header").choice;
        const std::string msdos = fact(guessOf(little.bytes), "Text header").choice;
        EXPECT_EQ(standard.find(c.choice), 0u) << standard;
        // The menu's type joins text and byte order; what it can't show is said.
        const bool hasAscii = std::string(c.choice).find("ASCII") != std::string::npos;
        const bool hasEbcdic = std::string(c.choice).find("EBCDIC") != std::string::npos;
        EXPECT_EQ(standard.find("garbled") != std::string::npos, hasAscii) << standard;
        EXPECT_EQ(msdos.find("garbled") != std::string::npos, hasEbcdic) << msdos;
    }
}

TEST(SegyGuess, WhatTheTextSaysOfItsSamplesIsQuoted)
{
    SegyBuilder file = smallFile();
    std::string text = "C 1 CLIENT A AREA B LINE C" + std::string(54, ' ') + "C 2 SAMPLE FORMAT:   MSDOS IEEE";
    text.resize(3200, ' ');
    std::copy(text.begin(), text.end(), file.bytes.begin());
    EXPECT_NE(fact(guessOf(file.bytes), "Sample format").evidence.find("\"C 2 SAMPLE FORMAT: MSDOS IEEE\""),
              std::string::npos);
}

TEST(SegyGuess, ExtendedTextHeadersMoveTheFirstTrace)
{
    const SegyBuilder plain = smallFile();
    for (int count : {2, -1}) {
        SCOPED_TRACE(count);
        std::string texts(6400, ' ');
        texts.replace(3200, 20, "((SEG: EndText))    ");
        SegyBuilder file = plain;
        file.put<int16_t>(3504, int16_t(count));
        file.bytes.insert(file.bytes.begin() + 3600, texts.begin(), texts.end());
        const SegyGuess guess = guessOf(file.bytes, oddSettings());
        EXPECT_EQ(guess.verdict, SegyGuess::Read);
        EXPECT_EQ(guess.search.layout.nTraces, 6);
        EXPECT_EQ(guess.parm.layout.firstTrace, 10000);
        EXPECT_EQ(guess.parm.layout.headerBytes, 240);
        EXPECT_EQ(guess.parm.nsamp, 10);
        EXPECT_EQ(fact(guess, "First trace").choice, "byte 10000, header 240 bytes: set in the group Layout");
    }
}

TEST(SegyGuess, ToldTextHeadersThatAreNotThereAreNotBelieved)
{
    SegyBuilder file = smallFile();
    file.put<int16_t>(3504, 2);
    const SegyGuess guess = guessOf(file.bytes);
    EXPECT_EQ(guess.verdict, SegyGuess::Read);
    EXPECT_EQ(guess.search.layout.firstTrace, 3600);
    EXPECT_NE(fact(guess, "First trace").choice.find("don't fit the file"), std::string::npos);
}

TEST(SegyGuess, LongerTraceHeadersAreFound)
{
    SegyBuilder file(10, 5);
    file.put<int16_t>(3500, 0x0200);
    file.put<int16_t>(3506, 1);
    for (size_t i = 0; i < 6; ++i) {
        file.addHeader();
        fillHeader(&file, i, 5, int(i) + 1, 10);
        file.bytes.resize(file.bytes.size() + 240);
        for (int j = 0; j < 10; ++j) file.put<float>(file.bytes.size(), 1.25f);
    }
    const SegyGuess guess = guessOf(file.bytes, oddSettings());
    EXPECT_EQ(guess.verdict, SegyGuess::Read);
    EXPECT_EQ(guess.search.layout.nTraces, 6);
    EXPECT_EQ(guess.parm.layout.headerBytes, 480);
    EXPECT_EQ(guess.parm.layout.firstTrace, 3600);
    EXPECT_EQ(guess.parm.nsamp, 10);
}

TEST(SegyGuess, AReelCountOfOneTraceIsReplacedByTheLargestEnsemble)
{
    SegyBuilder file = smallFile();
    file.put<int16_t>(3212, 1);
    const SegyGuess guess = guessOf(file.bytes);
    EXPECT_EQ(guess.parm.maxtr, 3);
    EXPECT_EQ(fact(guess, "Traces per ensemble").choice, "3: by the reel an ensemble would end after 1 trace");
    EXPECT_EQ(guess.parm.isort, 1);
}

TEST(SegyGuess, ACutFileKeepsItsLayoutAndSaysSo)
{
    const SegyBuilder whole = smallFile();
    for (size_t cut : {1u, 17u, 40u, 41u, 200u, 279u}) {
        SCOPED_TRACE(cut);
        const std::vector<char> bytes(whole.bytes.begin(), whole.bytes.end() - std::ptrdiff_t(cut));
        const SegyGuess guess = guessOf(bytes);
        EXPECT_EQ(guess.verdict, SegyGuess::Read);
        EXPECT_EQ(guess.search.layout.nTraces, 5);
        EXPECT_EQ(guess.search.layout.tailBytes, 280 - int64_t(cut));
        EXPECT_EQ(guess.parm.nsamp, 10);
        EXPECT_NE(fact(guess, "Trace length").choice.find("5 whole traces: the file is cut"), std::string::npos);
    }
}

TEST(SegyGuess, AFileCutInItsFirstTraceIsStillSeen)
{
    const SegyBuilder whole = smallFile();
    const SegyGuess guess = guessOf({whole.bytes.begin(), whole.bytes.begin() + 3600 + 250});
    EXPECT_EQ(guess.verdict, SegyGuess::Read);
    EXPECT_EQ(guess.search.layout.nTraces, 0);
    EXPECT_EQ(guess.parm.nsamp, 10);
}

TEST(SegyGuess, TracesOfVariableLengthAreFollowedAndThenOpen)
{
    for (bool isBigEndian : {true, false}) {
        SCOPED_TRACE(isBigEndian);
        SegyBuilder file(30, 5, isBigEndian);
        const int lengths[] = {30, 25, 30, 41, 12, 30, 7};
        for (size_t i = 0; i < std::size(lengths); ++i) {
            file.addTrace(std::vector<float>(size_t(lengths[i]), 2.5f));
            fillHeader(&file, i, 3, int(i) + 1, lengths[i]);
        }
        const SegyGuess guess = guessOf(file.bytes);
        EXPECT_EQ(guess.verdict, SegyGuess::Read);
        EXPECT_EQ(guess.parm.ivariable, 1);
        EXPECT_EQ(guess.parm.nsamp, 41) << "the longest trace";
        EXPECT_EQ(guess.search.layout.nTraces, 7);
        EXPECT_EQ(guess.sample.count(), 7u);
        EXPECT_EQ(guess.sample.headers[4].int32(12, isBigEndian), 5);

        const QTemporaryDir folder;
        const std::string path = file.save(folder.filePath("variable.sgy").toStdString());
        CollectReport report;
        SegyLoadParm parm = guess.parm;
        parm.files = QString::fromStdString(path);
        parm.icscale = parm.iescale = 0;
        parm.indexbuilt = 1;
        const auto loader = SegyLoader::open(parm, &report);
        ASSERT_TRUE(loader) << report.text;
        EXPECT_EQ(loader->getTotalTraces(), 7);
        loader->loadNextEnsemble(1);
        ASSERT_EQ(loader->numTraces(), 7);
        EXPECT_EQ(loader->getTraces()[3][40], 2.5f);
        EXPECT_EQ(loader->getTraces()[4][11], 2.5f);
        EXPECT_EQ(loader->getTraces()[4][12], 0.0f);
    }
}

TEST(SegyGuess, TracesOfVariableLengthAreFollowedToTheCut)
{
    SegyBuilder file(30, 5);
    const int lengths[] = {30, 25, 41, 12};
    for (size_t i = 0; i < std::size(lengths); ++i) {
        file.addTrace(std::vector<float>(size_t(lengths[i]), 2.5f));
        fillHeader(&file, i, 3, int(i) + 1, lengths[i]);
    }
    const int64_t last = 240 + 12 * 4;
    for (int64_t cut : {int64_t(1), int64_t(47), int64_t(100), last - 1}) {
        SCOPED_TRACE(cut);
        const SegyGuess guess = guessOf({file.bytes.begin(), file.bytes.end() - cut});
        EXPECT_EQ(guess.parm.ivariable, 1);
        EXPECT_EQ(guess.search.layout.nTraces, 3);
        EXPECT_EQ(guess.search.layout.tailBytes, last - cut);
        EXPECT_NE(fact(guess, "Trace length").evidence.find("cut by the end of the file"), std::string::npos);
    }
}

TEST(SegyGuess, VariableLengthsThatAFixedOneWouldDivideAreFollowed)
{
    // Each pair has 80 samples: 40 of all fit the size and every other header, and so does one trace a pair.
    for (int nBefore : {0, 4})
        for (bool isBigEndian : {true, false}) {
            SCOPED_TRACE(testing::Message() << nBefore << " of 40 before, big " << isBigEndian);
            SegyBuilder file(40, 5, isBigEndian);
            for (size_t i = 0; i < 24; ++i) {
                const int count = int(i) < nBefore ? 40 : i % 2 == 0 ? 30 : 50;
                file.addTrace(std::vector<float>(size_t(count), 2.5f));
                fillHeader(&file, i, 3, int(i) + 1, count);
            }
            const SegyGuess guess = guessOf(file.bytes);
            EXPECT_EQ(guess.parm.ivariable, 1);
            EXPECT_EQ(guess.parm.nsamp, 50);
            EXPECT_EQ(guess.search.layout.nTraces, 24);
        }
}

TEST(SegyGuess, AFixedLengthThatFitsStandsAgainstALastHeaderThatLies)
{
    SegyBuilder file = smallFile();
    file.setHeader<int16_t>(5, 114, 462);
    const SegyGuess guess = guessOf(file.bytes);
    EXPECT_EQ(guess.parm.ivariable, 0);
    EXPECT_EQ(guess.parm.nsamp, 10);
    EXPECT_EQ(guess.search.layout.nTraces, 6);
}

TEST(SegyGuess, VariableLengthsAreFollowedAgainstTheCode)
{
    SegyBuilder file(30, 5);  // IEEE by the code
    const int lengths[] = {30, 25, 30, 41, 12, 30, 7};
    for (size_t i = 0; i < std::size(lengths); ++i) {
        file.addTrace(std::vector<int16_t>(size_t(lengths[i]), 25));
        fillHeader(&file, i, 3, int(i) + 1, lengths[i]);
    }
    const SegyGuess guess = guessOf(file.bytes);
    EXPECT_EQ(guess.parm.ivariable, 1);
    EXPECT_EQ(guess.search.layout.nTraces, 7);
    EXPECT_EQ(guess.parm.iformat, ChooseInteger2);
    EXPECT_EQ(fact(guess, "Sample format").choice, "Integer (2 byte): against the code");
}

TEST(SegyGuess, WhatIsNoSegyIsSaidAndNothingIsSet)
{
    const SegyBuilder whole = smallFile();
    std::vector<char> garbage(20000), zeros(20000, 0), text(20000, 'A');
    Noise noise;
    for (char& c : garbage) c = char(int(noise.next() * 60.0));
    const std::vector<char> su(whole.bytes.begin() + 3600, whole.bytes.end());
    const struct {
        const char* name;
        std::vector<char> bytes;
        const char* summary;
    } cases[] = {
        {"empty", {}, "The file is empty."},
        {"one byte", {'x'}, "The file is too small to be SEG-Y."},
        {"3599 bytes", {whole.bytes.begin(), whole.bytes.begin() + 3599}, "The file is too small to be SEG-Y."},
        {"a reel alone", {whole.bytes.begin(), whole.bytes.begin() + 3600}, "The file holds no trace."},
        {"a reel and a part of a header",
         {whole.bytes.begin(), whole.bytes.begin() + 3700},
         "The file holds no trace."},
        {"garbage", garbage, "No SEG-Y layout fits this file."},
        {"zeros", zeros, "No SEG-Y layout fits this file."},
        {"text", text, "No SEG-Y layout fits this file."},
        {"SU", su, "This is an SU file"},
        {"SEG-2", {'\x55', '\x3a', 1, 0}, "This is a SEG-2 record"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const SegyGuess guess = guessOf(c.bytes, oddSettings());
        EXPECT_EQ(guess.verdict, SegyGuess::NotSegy);
        EXPECT_EQ(guess.summary.find(c.summary), 0u) << guess.summary;
        EXPECT_FALSE(guess.facts.empty());
        EXPECT_TRUE(isSame(guess.parm, oddSettings()));
    }
}

TEST(SegyGuess, AFailingDiskIsAnErrorAndLeavesTheGuessAlone)
{
    const SegyBuilder file = smallFile();
    for (int64_t failsAt : {0, 3599, 3700, 4200}) {
        const FailingSource source(file.bytes, failsAt);
        SegyGuess guess;
        guess.summary = "as it was";
        std::string error;
        EXPECT_FALSE(guessSegy(source, SegyLoadParm(), &guess, &error)) << failsAt;
        EXPECT_EQ(error, "Input/output error");
        EXPECT_EQ(guess.summary, "as it was");
    }
    SegyGuess guess;
    std::string error;
    EXPECT_FALSE(guessSegyFile("/no/such/file.sgy", SegyLoadParm(), &guess, &error));
    EXPECT_EQ(error, "No such file or directory");
}
