/// Names, types and values of the keys, as the axes show them, and what stays in view when memory runs out.
#include "display/headeraxis.h"
#include "display/raster/ensemblecopy.h"
#include "host/flow/standardwords.h"
#include "host/flow/stheader.h"
#include "tracedata/headertable.h"
#include "tracedata/seismicdata.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstdlib>
#include <cstring>
#include <new>

/// While above 0, the allocation of this many bytes or more that brings it to 0 fails.
static int refuseAt = 0;
constexpr size_t largeBlock = 20000;

void* operator new(size_t size)
{
    if (refuseAt > 0 && size >= largeBlock && --refuseAt == 0) throw std::bad_alloc();
    void* block = std::malloc(size > 0 ? size : 1);
    if (!block) throw std::bad_alloc();
    return block;
}
void operator delete(void* block) noexcept
{
    std::free(block);
}
void operator delete(void* block, size_t) noexcept
{
    std::free(block);
}

static int wordOf(float value)
{
    return std::bit_cast<int>(value);
}

/// Words 0 to 5 of each trace: whole, float, double (two cells), short, text of two cells, panel velocity.
struct HeaderAxisTest : testing::Test {
    HeaderTable table;
    std::vector<std::vector<int>> words;
    std::vector<int*> headers;
    std::vector<float> samples = {0.0f};
    std::vector<float*> traces;
    SeismicData data;
    HeaderAxis axis;
    std::string error;

    HeaderAxisTest()
    {
        table.append("WHOLE   ", "", 0, Integer4Format, 1, 1);
        table.append("REAL    ", "", 1, Float4Format, 1, 1);
        table.append("DOUBLE  ", "", 2, Double8Format, 1, 1);
        table.append("SHORT   ", "", 3, Integer2Format, 1, 1);
        table._headerSaved = true;
    }

    void load(int n)
    {
        words.assign(n, std::vector<int>(6, 0));
        headers.clear();
        traces.assign(n, samples.data());
        for (int i = 0; i < n; ++i) {
            words[i][0] = 100 + i;
            words[i][1] = wordOf(0.5f + i);
            words[i][3] = wordOf(7.0f + i);
            headers.push_back(words[i].data());
        }
        data.clear();
        data.setHeaderWords(&table);
        data.setNumHeaderWords(6);
        data.loadAllTraces(traces.data(), headers.data(), 1, n);
    }

    /// Header words counted from 0: primary and its real key, secondary and its real key.
    bool build(const std::array<int, 4>& keys, bool rightToLeft = false, bool isDifference = false)
    {
        const HeaderKeys words = {WordFrom0(keys[0]), WordFrom0(keys[1]), WordFrom0(keys[2]), WordFrom0(keys[3])};
        return axis.build(data, words, rightToLeft, isDifference, &error);
    }
};

TEST_F(HeaderAxisTest, EachFormatHasItsLetterAndOnlyWholeWordsAreReadAsWhole)
{
    load(2);
    ASSERT_TRUE(build({0, 1, 2, 3}));
    EXPECT_EQ(axis.pri().type, 'I');
    EXPECT_EQ(axis.priReal().type, 'F');
    EXPECT_EQ(axis.sec().type, 'D');
    EXPECT_EQ(axis.secReal().type, 'S');
    EXPECT_EQ(axis.pri().name, QString("WHOLE   "));
    EXPECT_EQ(axis.pri().values[0], 0.0f);
    EXPECT_EQ(axis.pri().values[1], 100.0f);
    EXPECT_EQ(axis.pri().values[2], 101.0f);
    EXPECT_EQ(axis.priReal().values[2], 1.5f);
    EXPECT_EQ(axis.secReal().values[1], 7.0f);  // the cell's bits as a float: only 'I' is whole
}

TEST_F(HeaderAxisTest, AnUnknownWordIsNoneAndZero)
{
    load(2);
    ASSERT_TRUE(build({0, -1, 50, 0}));
    for (const KeyColumn* column : {&axis.priReal(), &axis.sec()}) {
        EXPECT_EQ(column->name, QString("None"));
        EXPECT_EQ(column->type, 'I');
        EXPECT_EQ(column->values[1], 0.0f);
        EXPECT_EQ(column->values[2], 0.0f);
    }
}

TEST_F(HeaderAxisTest, RightToLeftTheLastTraceStandsFirst)
{
    load(3);
    ASSERT_TRUE(build({0, 0, 0, 0}, true));
    EXPECT_EQ(axis.pri().values[1], 102.0f);
    EXPECT_EQ(axis.pri().values[3], 100.0f);
}

TEST_F(HeaderAxisTest, ParameterTestAndPanelVelocityComeFromTheFirstTrace)
{
    load(2);
    ASSERT_TRUE(build({0, 0, 0, 0}));
    EXPECT_EQ(axis.parmTest(), QString());
    EXPECT_EQ(axis.panelVelocity(), 0.0f);

    HeaderTable withPanel = table;
    withPanel.append("parmtest", "", 4, Integer4Format, 1, 1);
    withPanel.append("panl_vel", "", 5, Float4Format, 1, 1);
    table = withPanel;
    load(2);
    std::memcpy(&words[0][4], "v=2k", 4);
    words[0][5] = wordOf(2100.5f);
    ASSERT_TRUE(build({0, 0, 0, 0}));
    EXPECT_EQ(axis.parmTest(), QString("v=2k"));  // one cell of four letters
    EXPECT_EQ(axis.panelVelocity(), 2100.5f);
    ASSERT_TRUE(build({0, 0, 0, 0}, false, true));
    EXPECT_EQ(axis.parmTest(), QString("Difference"));
}

TEST_F(HeaderAxisTest, AWholePanelVelocityIsReadAsWhole)
{
    table.append("panl_vel", "", 5, Integer4Format, 1, 1);
    load(1);
    words[0][5] = 1800;
    ASSERT_TRUE(build({0, 0, 0, 0}));
    EXPECT_EQ(axis.panelVelocity(), 1800.0f);
}

TEST_F(HeaderAxisTest, WithoutMemoryEveryColumnStaysWhereItIs)
{
    const char* const places[] = {"0", "0", "1", "2"};
    load(2);
    ASSERT_TRUE(build({0, 1, 0, 1}));
    const float* const shown = axis.sec().values.data();
    load(6000);  // 24008 bytes a column
    for (int refused = 1; refused <= 4; ++refused) {
        SCOPED_TRACE(refused);
        refuseAt = refused;
        const bool isBuilt = build({1, 1, 1, 1});
        refuseAt = 0;
        EXPECT_FALSE(isBuilt);
        EXPECT_EQ(error,
                  std::string("MERIDUNE: buildHeadersAxis, error while getting memory: ") + places[refused - 1] + ".");
        EXPECT_EQ(axis.traceCount(), 2);
        EXPECT_EQ(axis.sec().values.data(), shown);
        EXPECT_EQ(axis.sec().values[2], 101.0f);
        EXPECT_EQ(axis.sec().name, QString("WHOLE   "));
    }
    ASSERT_TRUE(build({1, 1, 1, 1}));
    EXPECT_EQ(axis.sec().values[6000], 5999.5f);
}

TEST_F(HeaderAxisTest, TheCopyInViewStaysWhereItIsToo)
{
    const char* const places[] = {"2", "3", "0", "1"};  // samples, words, and the pointers to each
    EnsembleCopy copy;
    load(2);
    ASSERT_TRUE(copy.copy(traces.data(), headers.data(), 2, 0, 1, 6, &error));
    float** const shownTraces = copy.traces();
    int* const shownWords = copy.headers()[1];
    load(6000);
    for (int refused = 1; refused <= 4; ++refused) {
        SCOPED_TRACE(refused);
        refuseAt = refused;
        const bool isCopied = copy.copy(traces.data(), headers.data(), 6000, 0, 1, 6, &error);
        refuseAt = 0;
        EXPECT_FALSE(isCopied);
        EXPECT_EQ(error,
                  std::string("MERIDUNE: loadSeismicData, error while getting memory, ") + places[refused - 1] + ".");
        EXPECT_EQ(copy.traceCount(), 2);
        EXPECT_EQ(copy.traces(), shownTraces);
        EXPECT_EQ(copy.headers()[1], shownWords);
        EXPECT_EQ(shownWords[0], 101);
    }
}
