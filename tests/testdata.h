/// Where the tests find the real files, and how they say that these are missing.
#ifndef TESTDATA_H
#define TESTDATA_H

#include <cstdlib>
#include <filesystem>
#include <string>

/// The folder of the real data files: $MERIDUNE_TEST_DATA, or the one beside the project.
inline std::string testDataFolder()
{
    const char* folder = std::getenv("MERIDUNE_TEST_DATA");
    return folder && *folder ? folder : MERIDUNE_TEST_DATA_DEFAULT;
}

inline std::string testDataFile(const std::string& name)
{
    return testDataFolder() + "/" + name;
}

inline bool hasTestData()
{
    return std::filesystem::exists(testDataFile("README.md"));
}

/// First line of a GoogleTest that needs the real files.
#define SKIP_WITHOUT_TEST_DATA() \
    if (!hasTestData()) GTEST_SKIP() << "no real data files in " << testDataFolder()

#endif
