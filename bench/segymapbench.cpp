/// The trace map: its build beside a plain loop over a mapped file, its sort beside std::stable_sort, its memory.
#include "bench/limits.h"
#include "bench/ratio.h"
#include "bench/segybenchfile.h"
#include "host/report.h"
#include "sources/segydata2.h"

#include <fstream>
#include <random>

#include <sys/mman.h>

namespace {
struct Silent : Report {
    void line(const std::string&) override {}
    void box(const std::string&, const std::string&) override {}
};
}  // namespace

static SegyMap buildMap(const SegyBenchFile& file)
{
    Silent report;
    SegyReadParm parm;
    parm.iswap = 1;
    segyData2 data(parm, &report);
    data.openFile(QString::fromStdString(file.path), false);
    data.reelHeader(false);
    data.setTraceBytes();
    data.buildMap(false);
    return std::move(data.map());
}

static void mappedSums(const SegyBenchFile& file, int64_t nTraces, double* sums)
{
    const auto nBytes = size_t(file.size());
    void* mapped = ::mmap(nullptr, nBytes, PROT_READ, MAP_SHARED, file.descriptor, 0);
    std::fill(sums, sums + 16, 0.0);
    plainHeaderSums(static_cast<const unsigned char*>(mapped), nTraces, file.recordBytes, sums);
    ::munmap(mapped, nBytes);
}

/// A line of /proc/self/status in bytes.
static double statusBytes(const std::string& key)
{
    std::ifstream in("/proc/self/status");
    for (std::string line; std::getline(in, line);)
        if (line.rfind(key, 0) == 0) return 1024.0 * std::stod(line.substr(key.size() + 1));
    return 0.0;
}

static bool warmBuild()
{
    constexpr int nTraces = 1000000;
    const SegyBenchFile file(nTraces, 500, 1);
    if (!file.isGood) return false;
    // Memory first, while nothing else has raised the highest mark.
    const double before = statusBytes("VmRSS");
    std::ofstream("/proc/self/clear_refs") << "5";
    SegyMap map = buildMap(file);
    sortSegyMap(map.items(), map.count(), MapSlot(8), MapSlot(0));
    const double peak = statusBytes("VmHWM") - before, after = statusBytes("VmRSS") - before;
    std::printf("FIGURE map memory, bytes a trace: after %.1f (allowed 96) %s, while building and sorting %.1f "
                "(allowed 144) %s\n",
                after / nTraces, judge(after / nTraces, 96.0), peak / nTraces, judge(peak / nTraces, 144.0));
    double sums[16] = {}, expected[16];
    for (int i = 0; i < map.count(); ++i)
        for (int slot = 0; slot < 16; ++slot) sums[slot] += map.items()[i].item[slot];
    mappedSums(file, nTraces, expected);
    if (map.count() != nTraces || std::memcmp(sums, expected, sizeof sums) != 0) {
        std::printf("segymapbench: the sums differ\n");
        return false;
    }
    map = SegyMap();
    printFigure(
        "map of 1,000,000 traces, warm / mapped loop", 1.2, double(nTraces) * 240, [&] { buildMap(file); },
        [&] { mappedSums(file, nTraces, expected); });
    return true;
}

static bool coldBuild()
{
    const SegyBenchFile file(100000, 5940, 5);
    if (!file.isGood) return false;
    std::vector<double> ratios, ours, limit;
    for (int i = 0; i < 5; ++i) {
        file.dropCache();
        ours.push_back(secondsOf([&] { buildMap(file); }));
        file.dropCache();
        limit.push_back(secondsOf([&] { plainReadOfFile(file.descriptor); }));
        ratios.push_back(ours.back() / limit.back());
    }
    for (auto* v : {&ratios, &ours, &limit}) std::sort(v->begin(), v->end());
    printRatio("map of 24 kB records, cold / whole read", {ratios[2], ratios[0], ratios[4], ours[2], limit[2]}, 1.0,
               double(file.size()));
    return true;
}

static bool sort()
{
    constexpr int n = 1000000;
    std::mt19937 random(9);
    std::vector<segyMapItem> items(n), mine, theirs;
    for (int i = 0; i < n; ++i) {
        items[size_t(i)].itrace = uint32_t(i);
        for (float& key : items[size_t(i)].item) key = float(random() % 100000);
        items[size_t(i)].item[8] = float(random() % 1000);
    }
    const auto ours = [&] { sortSegyMap(mine.data(), n, MapSlot(8), MapSlot(0)); };
    const auto limit = [&] {
        std::stable_sort(theirs.begin(), theirs.end(), [](const segyMapItem& a, const segyMapItem& b) {
            return segyMapCompare(a, b, MapSlot(8), MapSlot(0)) < 0;
        });
    };
    std::vector<double> ratios, oursSec, limitSec;
    for (int i = 0; i < 7; ++i) {
        mine = items;
        oursSec.push_back(secondsOf(ours));
        theirs = items;
        limitSec.push_back(secondsOf(limit));
        ratios.push_back(oursSec.back() / limitSec.back());
    }
    if (std::memcmp(mine.data(), theirs.data(), n * sizeof(segyMapItem)) != 0) return false;
    for (auto* v : {&ratios, &oursSec, &limitSec}) std::sort(v->begin(), v->end());
    printRatio("sort of 1,000,000 items / std::stable_sort", {ratios[3], ratios[0], ratios[6], oursSec[3], limitSec[3]},
               0.6, double(n) * sizeof(segyMapItem));
    return true;
}

int main()
{
    return benchStatus(warmBuild() && coldBuild() && sort());
}
