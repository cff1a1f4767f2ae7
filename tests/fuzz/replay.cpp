/// Runs every file of a folder through one fuzz target: replay TARGET FOLDER. Ends with 1 when the
/// target is unknown or the folder holds no file, so that an empty corpus is never a pass.
#include "fuzztargets.h"

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

int main(int argc, char** argv)
{
    if (argc != 3 || !std::filesystem::is_directory(argv[2])) {
        std::fprintf(stderr, "usage: fuzz_replay TARGET FOLDER\n");
        return 1;
    }
    if (std::strcmp(argv[1], "allocationlimit") == 0) {
        // Proves that the limit holds in this build: this must end the program.
        const std::vector<char> tooMuch(size_t(513) << 20);
        return tooMuch[0];
    }
    for (const auto& target : fuzzTargets) {
        if (std::strcmp(target.name, argv[1]) != 0) continue;
        int nFiles = 0;
        for (const auto& entry : std::filesystem::directory_iterator(argv[2])) {
            std::ifstream in(entry.path(), std::ios::binary);
            const std::vector<char> bytes((std::istreambuf_iterator<char>(in)), {});
            std::fprintf(stderr, "%s\n", entry.path().c_str());
            target.run(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
            ++nFiles;
        }
        std::printf("%d inputs\n", nFiles);
        return nFiles > 0 ? 0 : 1;
    }
    std::fprintf(stderr, "fuzz_replay: no target %s\n", argv[1]);
    return 1;
}
