#include "trevia/democommand.h"

#include "trevia/outputfile.h"
#include "trevia/subcommands.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <unistd.h>

namespace fs = std::filesystem;

static std::string contents(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// A folder of its own for each test, removed behind it.
class InFolder : public testing::Test
{
protected:
    void SetUp() override
    {
        _folder = fs::temp_directory_path() / ("democommandtest" + std::to_string(getpid()));
        fs::create_directories(_folder);
    }
    void TearDown() override { fs::remove_all(_folder); }
    fs::path _folder;
};

class DemoCommand : public InFolder
{
};
class OutputFileTest : public InFolder
{
};

TEST_F(DemoCommand, ReadsItsArguments)
{
    DemoWish wish;
    std::string error;
    ASSERT_TRUE(parseDemoArguments({}, &wish, &error));
    EXPECT_EQ(wish.folder, "demo");
    EXPECT_EQ(wish.nShots, 60);
    EXPECT_TRUE(wish.withFaults);
    ASSERT_TRUE(parseDemoArguments({"--noise", "0.5", "there", "--shots", "7", "--no-faults"}, &wish, &error));
    EXPECT_EQ(wish.folder, "there");
    EXPECT_EQ(wish.noiseDeviation, 0.5);
    EXPECT_EQ(wish.nShots, 7);
    EXPECT_FALSE(wish.withFaults);
}

TEST_F(DemoCommand, RefusesWhatItCannotRead)
{
    const std::vector<std::vector<std::string>> bad = {
        {"--noise"},       {"--noise", "x"},   {"--noise", "-1"}, {"--noise", "nan"}, {"--shots", "0"},
        {"--shots", "61"}, {"--shots", "3.5"}, {"--what"},        {"a", "b"},         {""}};
    for (const auto& arguments : bad) {
        SCOPED_TRACE(arguments[0]);
        DemoWish wish;
        wish.folder = "kept";
        std::string error;
        EXPECT_FALSE(parseDemoArguments(arguments, &wish, &error));
        EXPECT_FALSE(error.empty());
        EXPECT_EQ(wish.folder, "kept");
        EXPECT_EQ(demoCommand(arguments), 2);
    }
}

TEST_F(DemoCommand, WritesAllFilesWithTheirChecksums)
{
    const std::string to = (_folder / "new" / "demo").string();
    ASSERT_EQ(runTrevia({"demo", to, "--shots", "2"}), 0);
    EXPECT_EQ(fs::file_size(to + "/demo.sgy"), 3600u + 240u * 4244u);
    EXPECT_EQ(fs::file_size(to + "/demo_cdp.sgy"), 3600u + 240u * 4244u);
    EXPECT_EQ(fs::file_size(to + "/demo_eta.sgy"), 3600u + 60u * (240u + 4u * 1251u));
    EXPECT_EQ(fs::file_size(to + "/demo_3d.sgy"), 3600u + 400u * 4244u);
    EXPECT_EQ((fs::file_size(to + "/demo_cvs.sgy") - 3600u) % (19u * 4244u), 0u);
    const std::string text = contents(to + "/demo.txt");
    EXPECT_NE(text.find("seed 20240601"), std::string::npos);
    std::istringstream sums(text.substr(text.find("each file:") + 11));
    int files = 0;
    std::string crc, name;
    for (size_t size; sums >> crc >> size >> name; ++files) {
        SCOPED_TRACE(name);
        const std::string bytes = contents(fs::path(to) / name);
        EXPECT_EQ(bytes.size(), size);
        EXPECT_EQ(crc32Of(0, bytes.data(), bytes.size()), std::stoul(crc, nullptr, 16));
    }
    EXPECT_EQ(files, 13);
    // Nothing temporary is left: the 13 files and demo.txt.
    EXPECT_EQ(std::distance(fs::directory_iterator(to), fs::directory_iterator()), 14);
}

TEST_F(DemoCommand, GivesTheSameBytesInEveryRun)
{
    for (const char* name : {"a", "b"}) ASSERT_EQ(runTrevia({"demo", (_folder / name).string(), "--shots", "1"}), 0);
    for (const auto& entry : fs::directory_iterator(_folder / "a"))
        EXPECT_EQ(contents(entry.path()), contents(_folder / "b" / entry.path().filename())) << entry.path();
}

TEST_F(DemoCommand, AFolderThatCannotBeMadeIsAnError)
{
    std::ofstream(_folder / "file") << "x";
    EXPECT_EQ(runTrevia({"demo", (_folder / "file").string()}), 1);
    EXPECT_EQ(contents(_folder / "file"), "x");
}

TEST_F(DemoCommand, TheProgramNamesItsCommands)
{
    EXPECT_EQ(runTrevia({"--help"}), 0);
    EXPECT_EQ(runTrevia({"--version"}), 0);
    EXPECT_EQ(runTrevia({"demo", "--help"}), 0);
    testing::internal::CaptureStderr();
    EXPECT_EQ(runTrevia({"demi"}), 2);
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_NE(said.find("no command \"demi\""), std::string::npos);
    EXPECT_NE(said.find("  demo "), std::string::npos);
    EXPECT_EQ(runTrevia({}), 2);
}

TEST_F(DemoCommand, HelpIsPrintedAndMakesNothing)
{
    const std::string folder = (_folder / "none").string();
    testing::internal::CaptureStdout();
    EXPECT_EQ(runTrevia({"demo", folder, "--help"}), 0);
    const std::string said = testing::internal::GetCapturedStdout();
    EXPECT_EQ(said.find("Usage: trevia demo [FOLDER] [--noise SD] [--shots N] [--no-faults]\n"), 0u) << said;
    for (const char* words : {"  --noise SD ", "  --shots N ", "  --no-faults ", "  --help ", "demo_3d.sgy"})
        EXPECT_NE(said.find(words), std::string::npos) << words;
    EXPECT_FALSE(std::filesystem::exists(folder));
}

// The check value of the polynomial, published with it.
TEST_F(OutputFileTest, CrcOfTheNineDigits)
{
    EXPECT_EQ(crc32Of(0, "123456789", 9), 0xcbf43926u);
    EXPECT_EQ(crc32Of(crc32Of(0, "1234", 4), "56789", 5), 0xcbf43926u);
}

TEST_F(OutputFileTest, AppearsOnCommitOnly)
{
    const std::string name = (_folder / "f").string();
    std::ofstream(name) << "old";
    {
        OutputFile out(name);
        out.write("lost");
    }
    EXPECT_EQ(contents(name), "old");
    OutputFile out(name);
    out.write("new");
    EXPECT_EQ(contents(name), "old");
    std::string error;
    EXPECT_TRUE(out.commit(&error));
    EXPECT_EQ(contents(name), "new");
    EXPECT_EQ(out.size(), 3);
    EXPECT_EQ(std::distance(fs::directory_iterator(_folder), fs::directory_iterator()), 1);
}

TEST_F(OutputFileTest, AFileThatCannotBeWrittenIsNamed)
{
    OutputFile out((_folder / "missing" / "f").string());
    out.write("x");
    std::string error;
    EXPECT_FALSE(out.commit(&error));
    EXPECT_NE(error.find("missing"), std::string::npos);
}

TEST_F(OutputFileTest, AFullDiskIsAnError)
{
    if (access("/dev/full", W_OK) != 0) GTEST_SKIP() << "no /dev/full";
    std::FILE* full = std::fopen("/dev/full", "wb");
    ASSERT_TRUE(full);
    std::fclose(full);
    // The temporary name is a link to the full device.
    const std::string name = (_folder / "f").string();
    fs::create_symlink("/dev/full", name + ".part" + std::to_string(getpid()));
    OutputFile out(name);
    const std::string much(1 << 20, 'x');
    out.write(much);
    std::string error;
    EXPECT_FALSE(out.commit(&error));
    EXPECT_FALSE(error.empty());
    EXPECT_FALSE(fs::exists(name));
}
