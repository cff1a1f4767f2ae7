/// Any bytes as a SEG-Y file in every reading: the reel header, its repair, and the first trace.
#include "host/report.h"
#include "sources/segydata2.h"

#include <cstdint>

namespace {
struct Silent : Report {
    void line(const std::string&) override {}
    void box(const std::string&, const std::string&) override {}
};
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t n)
{
    Silent report;
    for (int variant = 0; variant < 12; ++variant) {
        SegyReadParm parm;
        parm.iswap = variant & 1;
        parm.ivariable = variant >> 1 & 1;
        parm.iformat = (variant >> 2) * 2;
        segyData2 data(parm, &report);
        data.openSource(std::make_unique<MemorySource>(bytes, n), "fuzz");
        if (!data.reelHeader(true)) continue;
        data.setTraceBytes();
        if (data.numSamples() < 1) continue;
        std::vector<char> trace(size_t(data.bufferBytes()));
        data.readTrace(trace.data());
    }
    return 0;
}
