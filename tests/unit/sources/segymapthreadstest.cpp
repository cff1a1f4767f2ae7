// A large map is filled by several threads: it must be what one trace after the other would give.
#include "segybuilder.h"

#include "host/progresssink.h"

#include <gtest/gtest.h>

#include <omp.h>

constexpr int nTraces = 50000, nSamples = 4, recordBytes = 240 + 4 * nSamples;
// Slots of an item: the words at bytes 21 and 9.
constexpr int cdpSlot = 2, ffidSlot = 8;

/// CDP and FFID tell the trace.
static const std::vector<char>& largeFile()
{
    static const std::vector<char> bytes = [] {
        SegyBuilder file(nSamples);
        const std::vector<float> samples(nSamples, 1.0f);
        for (int i = 0; i < nTraces; ++i) {
            file.addTrace(samples);
            file.setHeader<int32_t>(size_t(i), 20, 1000 + i);
            file.setHeader<int32_t>(size_t(i), 8, i / 120);
        }
        return file.bytes;
    }();
    return bytes;
}

/// Expects the first n traces of the file, and no more.
static void expectTraces(segyData2& data, int n)
{
    ASSERT_EQ(data.totalTraces(), n);
    for (int i = 0; i < n; ++i) {
        const segyMapItem* item = data.mapItem(i);
        ASSERT_EQ(item->itrace, uint32_t(i));
        ASSERT_EQ(item->offset, uint64_t(3600 + int64_t(i) * recordBytes)) << i;
        ASSERT_EQ(item->item[cdpSlot], float(1000 + i)) << i;
        ASSERT_EQ(item->item[ffidSlot], float(i / 120)) << i;
    }
}

class SegyMapThreads : public testing::TestWithParam<int>
{
protected:
    void SetUp() override { omp_set_num_threads(GetParam()); }
    void TearDown() override { omp_set_num_threads(_before); }

private:
    int _before = omp_get_max_threads();
};

INSTANTIATE_TEST_SUITE_P(Threads, SegyMapThreads, testing::Values(1, 2, 3, 7));

TEST_P(SegyMapThreads, EachTraceIsMappedOnceAndInFileOrder)
{
    OpenedSegy segy(largeFile(), OpenedSegy::bigEndian());
    ASSERT_TRUE(segy.data.buildMap(false));
    expectTraces(segy.data, nTraces);
    EXPECT_EQ(segy.data.getPos(), uint64_t(largeFile().size()));
}

TEST_P(SegyMapThreads, ALastTraceThatIsCutInItsHeaderOrItsSamplesCounts)
{
    for (int missing : {3, 100}) {
        std::vector<char> bytes = largeFile();
        bytes.resize(bytes.size() - size_t(missing));
        OpenedSegy segy(bytes, OpenedSegy::bigEndian());
        ASSERT_TRUE(segy.data.buildMap(false));
        expectTraces(segy.data, nTraces);
    }
}

TEST_P(SegyMapThreads, AReadThatFailsEndsTheMapAtItsTraceAndIsTold)
{
    for (int failing : {0, 5000, 16384, 20000, nTraces - 1}) {
        SCOPED_TRACE(failing);
        CollectReport report;
        segyData2 data(OpenedSegy::bigEndian(), &report);
        // The reader asks for a megabyte and gets what stands before the failure.
        class CutThenFailing : public FailingSource
        {
        public:
            CutThenFailing(const std::vector<char>& bytes, int64_t at) : FailingSource(bytes, at), _at(at) {}
            int64_t read(int64_t offset, size_t n, void* out, std::string* error) const override
            {
                const int64_t room = _at - offset;
                return FailingSource::read(offset, room > 0 ? std::min(n, size_t(room)) : n, out, error);
            }

        private:
            int64_t _at;
        };
        const int64_t at = 3600 + int64_t(failing) * recordBytes;
        data.openSource(std::make_unique<CutThenFailing>(largeFile(), at), "failing disk");
        ASSERT_TRUE(data.reelHeader(false));
        data.setTraceBytes();
        data.buildMap(false);
        expectTraces(data, failing);
        EXPECT_TRUE(report.has("Input/output error")) << report.text;
    }
}

namespace {
struct StopAfter : ProgressSink {
    explicit StopAfter(int steps) : left(steps) {}
    void begin(const std::string&, const std::string&) override {}
    void setRange(int, int) override {}
    void step(int) override {}
    bool cancelled() const override { return --left < 0; }
    mutable int left;
};
}  // namespace

TEST_P(SegyMapThreads, ABuildThatIsStoppedSaysSo)
{
    CollectReport report;
    StopAfter stop(20);
    segyData2 data(OpenedSegy::bigEndian(), &report, &stop);
    data.openSource(std::make_unique<MemorySource>(largeFile().data(), largeFile().size()), "memory");
    ASSERT_TRUE(data.reelHeader(false));
    data.setTraceBytes();
    EXPECT_FALSE(data.buildMap(true));
    EXPECT_LT(data.totalTraces(), nTraces);
}
