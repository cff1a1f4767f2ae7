/// Maps: each row of traces is interpolated to the pixels of a line. Sixteen rows are turned into columns first,
/// so that a pixel's place between two traces is looked up once for all of them.
#include "display/raster/rasterband.h"
#include "display/raster/rasternumber.h"
#include "display/raster/rasterpaint.h"
#include "host/numeric/intlin.h"
#include "host/numeric/scratch.h"
#include "host/numeric/tracelanes.h"

#include <vector>

/// The pixel columns of a map that stand in the picture, and their places between the traces.
struct MapGeometry {
    explicit MapGeometry(const RasterPainting& p);

    int begin, end;                   // columns, counted from xbase
    std::vector<LinearPlace> places;  // of column begin and those behind it
    std::vector<QRgb> colors;
};

MapGeometry::MapGeometry(const RasterPainting& p)
    : colors(p.colors->rgbArray(), p.colors->rgbArray() + p.colors->numColors())
{
    const int columns = std::max(0, wholeOf(p.window.pixPerTrace * p.window.count));
    begin = std::clamp(-p.window.xbase, 0, columns);
    end = std::clamp(p.window.width - p.window.xbase, begin, columns);
    std::vector<float> traceAt(p.window.count), pixelAt(end - begin);
    for (int i = 0; i < p.window.count; ++i) traceAt[i] = float(i) * float(columns) / float(p.window.count);
    for (int i = begin; i < end; ++i) pixelAt[i - begin] = float(i);
    places.resize(pixelAt.size());
    linearPlaces(p.window.count, traceAt.data(), int(pixelAt.size()), pixelAt.data(), places.data());
    for (QRgb& color : colors) color |= opaqueBlack;
}

/// Lines of a picture, where each begins with the map's first column in it.
struct MapLines {
    QRgb* pixels;
    int width, nRows;
};

/// Colours of up to traceLanes pixel columns: the indices column by column, the pixels line by line.
static inline MERIDUNE_KERNEL void writeColumns(const int (*indices)[traceLanes], int n, const QRgb* colors,
                                                const MapLines& lines, int first)
{
    for (int b = 0; b < lines.nRows; ++b) {
        QRgb* const line = lines.pixels + ptrdiff_t(b) * lines.width + first;
        for (int x = 0; x < n; ++x) line[x] = colors[indices[x][b]];
    }
}

static inline MERIDUNE_KERNEL void colorColumns(const float* columns, int nTraces, const MapGeometry& geometry,
                                                const ColorTable& table, const MapLines& lines)
{
    const int n = geometry.end - geometry.begin;
    alignas(64) int indices[traceLanes][traceLanes];
    for (int first = 0; first < n; first += traceLanes) {
        const int nColumns = std::min(traceLanes, n - first);
        alignas(64) float values[traceLanes][traceLanes];
        interpolateLanes(columns, nTraces, &geometry.places[first], nColumns, values[0], traceLanes);
        for (int x = 0; x < nColumns; ++x) colorIndices(values[x], traceLanes, table, indices[x]);
        writeColumns(indices, nColumns, geometry.colors.data(), lines, first);
    }
}

static void colorColumnsPlain(const float* columns, int nTraces, const MapGeometry& geometry, const ColorTable& table,
                              const MapLines& lines)
{
    colorColumns(columns, nTraces, geometry, table, lines);
}

MERIDUNE_V3 static void colorColumnsV3(const float* columns, int nTraces, const MapGeometry& geometry,
                                       const ColorTable& table, const MapLines& lines)
{
    colorColumns(columns, nTraces, geometry, table, lines);
}

void paintMap(const RasterPainting& p)
{
    const MapGeometry geometry(p);
    const auto color = cpuVariant() == CpuVariant::V3 ? colorColumnsV3 : colorColumnsPlain;
#pragma omp parallel for schedule(static) if (isWorthThreads(p.nRows, p.window.count))
    for (int r0 = 0; r0 < p.nRows; r0 += traceLanes) {
        static thread_local std::vector<float> columns;
        atLeast(&columns, size_t(p.window.count) * traceLanes);
        interleave(p.rows + r0 * p.stride, p.stride, p.window.count, columns.data());
        const int nRows = std::min(traceLanes, p.nRows - r0);
        QRgb* const lines = p.pixels + ptrdiff_t(p.window.top + r0) * p.window.width;
        std::fill_n(lines, size_t(nRows) * p.window.width, p.background);
        color(columns.data(), p.window.count, geometry, *p.colors,
              {lines + p.window.xbase + geometry.begin, p.window.width, nRows});
    }
}
