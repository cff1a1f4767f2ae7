/// What the two map targets share: a file's map by headers alone against reading trace by trace.
#ifndef SEGYMAPFUZZ_H
#define SEGYMAPFUZZ_H

#include "host/report.h"
#include "sources/segydata2.h"
#include "sources/segyheader.h"

#include <cstdint>
#include <cstdlib>

struct SilentReport : Report {
    void line(const std::string&) override { ++nLines; }
    void box(const std::string&, const std::string&) override {}
    int nLines = 0;
};

/// The first byte chooses the reading, with its highest bit set the second one the layout; the rest is the file. Ends the program when both ways differ.
inline void fuzzMap(const uint8_t* bytes, size_t n, int ivariable)
{
    constexpr size_t largestInput = 60000;
    if (n < 1 || n > largestInput) return;
    static const int formats[] = {0, 1, 2, 3, 4, 5, 6, 6};
    SegyReadParm parm;
    parm.iswap = bytes[0] & 1;
    parm.ivariable = ivariable;
    parm.iformat = bytes[0] & 2;
    parm.formatCode = formats[bytes[0] >> 2 & 7];
    parm.icscale = bytes[0] >> 5 & 1;
    parm.iremap = bytes[0] >> 6 & 1;
    parm.remapTable = remapTableFromText("CDP,4I,IEEE,9\nSOU_X,4R,IBM,73\nFFID,A4,IEEE,115\nREC_X,8R,IEEE,17\n");
    size_t nChoices = 1;
    if (bytes[0] & 0x80 && n > 2) {
        static const int layoutFormats[] = {0, 106, 107, 109, 110, 111, 115, 116};
        parm.layout.firstTrace = 3600 + (bytes[1] & 3) * 3200;
        parm.layout.headerBytes = 240 * (1 + (bytes[1] >> 2 & 3));
        parm.layout.sampleFormat = layoutFormats[bytes[1] >> 4 & 7];
        nChoices = 2;
    }
    SilentReport mapReport, readReport;
    segyData2 map(parm, &mapReport), read(parm, &readReport);
    for (segyData2* data : {&map, &read}) {
        data->openSource(std::make_unique<MemorySource>(bytes + nChoices, n - nChoices), "fuzz");
        if (!data->reelHeader(false)) return;
        if (parm.formatCode > 0) data->reel.format = int16_t(parm.formatCode);
        data->setTraceBytes();
        if (data->numSamples() < 1) return;
    }
    mapReport.nLines = readReport.nLines = 0;
    map.buildMap(false);
    std::vector<char> trace(size_t(read.bufferBytes()));
    read.setPos(uint64_t(parm.layout.firstTrace));
    int nTraces = 0;
    for (uint64_t start = read.getPos(); read.readTrace(trace.data()) > 0; start = read.getPos(), ++nTraces)
        if (nTraces >= map.totalTraces() || map.mapItem(nTraces)->offset != start) std::abort();
    read.tellRepeated();
    if (nTraces != map.totalTraces() || mapReport.nLines != readReport.nLines) std::abort();
    sortSegyMap(map.map().items(), map.totalTraces(), MapSlot(8), MapSlot(12));
    for (int i = 0; i < map.totalTraces(); ++i) {
        map.seekTrace(i, trace.data(), true);
        if (i > 0 && segyMapCompare(*map.mapItem(i - 1), *map.mapItem(i), MapSlot(8), MapSlot(12)) > 0) std::abort();
    }
}

#endif
