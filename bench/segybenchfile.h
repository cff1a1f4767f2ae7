/// Big SEG-Y files for the benchmarks, made in the folder of temporary files and removed afterwards.
#ifndef SEGYBENCHFILE_H
#define SEGYBENCHFILE_H

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <random>
#include <string>
#include <unistd.h>
#include <vector>

/// nTraces traces of nSamples samples in shots; headers random but seeded, samples small IBM or IEEE numbers.
class SegyBenchFile
{
public:
    SegyBenchFile(int nTraces, int nSamples, int format, int shotTraces = 120)
        : recordBytes(240 + 4 * int64_t(nSamples))
    {
        path =
            (std::filesystem::temp_directory_path() / ("meridunebench" + std::to_string(::getpid()) + ".sgy")).string();
        descriptor = ::open(path.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        std::vector<unsigned char> reel(3600, 0x40);
        std::memset(reel.data() + 3200, 0, 400);
        put16(&reel[3216], 2000);
        put16(&reel[3220], nSamples);
        put16(&reel[3224], format);
        put16(&reel[3228], 1);
        isGood = descriptor >= 0 && ::write(descriptor, reel.data(), 3600) == 3600;
        std::mt19937 random(7);
        std::vector<unsigned char> block;
        constexpr int blockTraces = 64;
        for (int i = 0; i < nTraces && isGood; i += blockTraces) {
            const int n = std::min(blockTraces, nTraces - i);
            block.resize(size_t(n) * size_t(recordBytes));
            for (int j = 0; j < n; ++j)
                fillTrace(&block[size_t(j) * size_t(recordBytes)], i + j, shotTraces, nSamples, &random);
            isGood = ::write(descriptor, block.data(), block.size()) == ssize_t(block.size());
        }
        ::fsync(descriptor);
    }
    ~SegyBenchFile()
    {
        ::close(descriptor);
        std::filesystem::remove(path);
    }
    SegyBenchFile(const SegyBenchFile&) = delete;
    SegyBenchFile& operator=(const SegyBenchFile&) = delete;
    /// Takes the file out of the page cache.
    void dropCache() const { ::posix_fadvise(descriptor, 0, 0, POSIX_FADV_DONTNEED); }
    int64_t size() const { return int64_t(std::filesystem::file_size(path)); }

    int64_t recordBytes;
    std::string path;
    int descriptor;
    bool isGood;

private:
    static void put16(unsigned char* at, int value)
    {
        at[0] = static_cast<unsigned char>(value >> 8);
        at[1] = static_cast<unsigned char>(value);
    }
    static void fillTrace(unsigned char* trace, int iTrace, int shotTraces, int nSamples, std::mt19937* random)
    {
        std::memset(trace, 0, 240);
        for (int byte : {0, 20, 36, 72, 76, 80, 84, 180, 184, 188, 192}) {
            const uint32_t word = __builtin_bswap32((*random)() >> 12);
            std::memcpy(trace + byte, &word, 4);
        }
        const uint32_t shot = __builtin_bswap32(uint32_t(iTrace / shotTraces + 1));
        std::memcpy(trace + 8, &shot, 4);
        trace[15] = static_cast<unsigned char>(iTrace % shotTraces + 1);
        trace[29] = 1;
        // 0x41 and 0x42 begin ordinary numbers in IBM and in IEEE
        const uint32_t noise = (*random)();
        for (int j = 0; j < nSamples; ++j) {
            const uint32_t word =
                __builtin_bswap32(0x41100000u | ((noise * uint32_t(j + 1) * 2654435761u) >> 8 & 0x00ffffffu));
            std::memcpy(trace + 240 + 4 * size_t(j), &word, 4);
        }
    }
};

#endif
