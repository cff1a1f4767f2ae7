/// `trevia segy`: what it prints, where, and how it ends.
#include "trevia/segycommand.h"

#include "tests/unit/sources/segybuilder.h"
#include "trevia/subcommands.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace {

struct Answer {
    int code;
    std::string out, error;
};

Answer run(const std::vector<std::string>& arguments)
{
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    Answer answer;
    answer.code = runTrevia(arguments);
    answer.out = testing::internal::GetCapturedStdout();
    answer.error = testing::internal::GetCapturedStderr();
    return answer;
}

class SegyCommand : public testing::Test
{
protected:
    std::string path(const char* name) const { return _folder.filePath(name).toStdString(); }
    /// Two shots of three channels, 10 IEEE samples.
    std::string goodFile() const
    {
        SegyBuilder file(10);
        for (size_t i = 0; i < 6; ++i) {
            file.addTrace(std::vector<float>(10, 1.5f));
            file.setHeader<int32_t>(i, 8, 7 + int(i) / 3);
            file.setHeader<int32_t>(i, 12, 1 + int(i) % 3);
            file.setHeader<int16_t>(i, 28, 1);
        }
        return file.save(path("good.sgy"));
    }
    QTemporaryDir _folder;
};

}  // namespace

TEST_F(SegyCommand, GuessPrintsFactsAndSettings)
{
    const std::string file = goodFile();
    const Answer answer = run({"segy", "guess", file});
    EXPECT_EQ(answer.code, 0);
    EXPECT_EQ(answer.error, "");
    EXPECT_THAT(answer.out, StartsWith(file + "\n6 traces of 10 samples, big-endian.\n\n"));
    EXPECT_THAT(answer.out, HasSubstr("\nByte order                big-endian: SEGY file type Standard\n"));
    EXPECT_THAT(answer.out, HasSubstr("\nTraces per ensemble       3"));
    EXPECT_THAT(answer.out, HasSubstr("\nSettings of the SEGY Menu:\n  Data sort order         FFID\n"));
    size_t start = 0;
    for (size_t end; (end = answer.out.find('\n', start)) != std::string::npos; start = end + 1)
        if (start > 0) {
            EXPECT_LE(end - start, 110u) << answer.out.substr(start, end - start);
        }
}

TEST_F(SegyCommand, HeadersPrintsTheRanking)
{
    const Answer answer = run({"segy", "headers", goodFile()});
    EXPECT_EQ(answer.code, 0);
    EXPECT_THAT(answer.out, HasSubstr("6 of 6 trace headers\n"));
    const size_t field = answer.out.find("   9     4  repeats by ensemble"),
                 channel = answer.out.find("  13     4  counts up");
    ASSERT_NE(field, std::string::npos) << answer.out;
    ASSERT_NE(channel, std::string::npos);
    EXPECT_LT(field, channel);
    EXPECT_THAT(answer.out, HasSubstr("2 values of 3 traces"));
}

TEST_F(SegyCommand, AFileProblemNamesFileAndReasonAndEndsWithOne)
{
    const std::string absent = path("absent.sgy");
    SegyBuilder(10).save(path("reel.sgy"));
    std::ofstream(path("empty.sgy"));
    for (const char* what : {"guess", "headers"}) {
        const Answer answer = run({"segy", what, absent});
        EXPECT_EQ(answer.code, 1);
        EXPECT_EQ(answer.error, "trevia segy: " + absent + ": No such file or directory\n");
        EXPECT_EQ(answer.out, "");
        EXPECT_EQ(run({"segy", what, path("empty.sgy")}).code, 1);
        EXPECT_EQ(run({"segy", what, path("empty.sgy")}).error,
                  "trevia segy: " + path("empty.sgy") + ": The file is empty.\n");
        EXPECT_EQ(run({"segy", what, path("reel.sgy")}).error,
                  "trevia segy: " + path("reel.sgy") + ": The file holds no trace.\n");
        EXPECT_EQ(run({"segy", what, _folder.path().toStdString()}).code, 1) << "a folder";
    }
}

TEST_F(SegyCommand, AFileThatTheReaderCannotFollowIsNoFailure)
{
    SegyBuilder file(10);
    file.put<int16_t>(3216, 0);
    for (size_t i = 0; i < 4; ++i) {
        file.addTrace(std::vector<float>(10, 1.5f));
        file.setHeader<int32_t>(i, 12, 1 + int(i));
    }
    const Answer answer = run({"segy", "guess", file.save(path("nointerval.sgy"))});
    EXPECT_EQ(answer.code, 0);
    EXPECT_THAT(answer.out, HasSubstr("The reader can't follow this file: its sample interval is told nowhere"));
    EXPECT_EQ(answer.out.find("Settings of the SEGY Menu"), std::string::npos);
}

TEST_F(SegyCommand, ExtendedTextHeadersAreSaidInTheLayoutOfTheSettings)
{
    SegyBuilder file(10);
    file.put<int16_t>(3504, 1);
    file.bytes.resize(3600 + 3200, ' ');
    for (size_t i = 0; i < 4; ++i) {
        file.addTrace(std::vector<float>(10, 1.5f));
        file.setHeader<int32_t>(i, 12, 1 + int(i));
    }
    const Answer answer = run({"segy", "guess", file.save(path("extended.sgy"))});
    EXPECT_EQ(answer.code, 0);
    EXPECT_THAT(answer.out, HasSubstr("byte 6800, header 240 bytes: set in the group Layout"));
    EXPECT_THAT(answer.out, HasSubstr("  First trace at byte     6800\n"));
    EXPECT_THAT(run({"segy", "headers", path("extended.sgy")}).out, HasSubstr("4 of 4 trace headers"));
}

TEST_F(SegyCommand, AWrongCallShowsTheHelpAndEndsWithTwo)
{
    const std::vector<std::string> wrong[] = {{"segy"},
                                              {"segy", "guess"},
                                              {"segy", "headers"},
                                              {"segy", "guess", "a", "b"},
                                              {"segy", "draw", "a"},
                                              {"segy", "guess", "--all"},
                                              {"segy", "guess", ""}};
    for (const auto& arguments : wrong) {
        const Answer answer = run(arguments);
        EXPECT_EQ(answer.code, 2);
        EXPECT_THAT(answer.error, StartsWith("trevia segy: "));
        EXPECT_THAT(answer.error, HasSubstr("Usage: trevia segy guess FILE"));
        EXPECT_EQ(answer.out, "");
    }
    EXPECT_THAT(run({"segy", "guess", ""}).error, StartsWith("trevia segy: no file named\n"));
    EXPECT_THAT(run({"segy", "guess", "a", ""}).error, StartsWith("trevia segy: one file, please\n"));
}

TEST_F(SegyCommand, HelpIsAnAnswer)
{
    for (const auto& arguments : {std::vector<std::string>{"segy", "--help"},
                                  {"segy", "guess", "--help"},
                                  {"segy", "headers", "a", "--help"}}) {
        const Answer answer = run(arguments);
        EXPECT_EQ(answer.code, 0);
        EXPECT_THAT(answer.out, StartsWith("Usage: trevia segy guess FILE\n"));
        EXPECT_EQ(answer.error, "");
    }
    EXPECT_THAT(run({"--help"}).out, HasSubstr("  segy "));
}
