/// A line of 30,000 traces as one ensemble: opened and painted, beside reading and converting it; and its memory.
#include "bench/limits.h"
#include "bench/ratio.h"
#include "bench/segybenchfile.h"
#include "display/colors/colorbarframe.h"
#include "display/images/myqwtplotcanvas.h"
#include "display/seismicdisplay.h"
#include "frame/sourcemenu.h"
#include "host/report.h"
#include "sources/segyloader.h"
#include "sources/segywords.h"
#include "tracedata/menudefaults.h"
#include "tracedata/parmmenu.h"
#include "tracedata/seismicdata.h"

#include <QApplication>
#include <QStatusBar>

#include <fstream>
#include <memory>

static constexpr int nTraces = 30000, nSamples = 2000;

namespace {
struct Silent : Report {
    void line(const std::string&) override {}
    void box(const std::string&, const std::string&) override {}
};
}  // namespace

/// The line as one ensemble, read and converted.
static std::unique_ptr<SegyLoader> read(const SegyBenchFile& file, parmmenu* menu, Report* report)
{
    auto loader = SegyLoader::open({.files = QString::fromStdString(file.path), .isort = 1, .maxtr = nTraces}, report);
    if (!loader) std::abort();
    setSourceDefaults(menu, *loader);
    loader->loadNextEnsemble(1);
    if (loader->numTraces() != nTraces) std::abort();
    return loader;
}

struct Line {
    explicit Line(const SegyBenchFile& file)
    {
        setDisplayDefaults(menu.get());
        loader = read(file, menu.get(), &silent);
        display = std::make_unique<SeismicDisplay>(nullptr, "Bench", &status, nullptr, true, true, 0, nullptr);
        display->setColorBar(&bar);
        display->seismicData()->setHeaderWords(&segyWords());
        display->setMenu(menu.get());
        display->resize(1900, 1000);
        display->show();
        display->loadSeismicData(loader->getTraces(), loader->getHeaders(), loader->numTraces(), true);
        const int before = display->myCanvas()->renderCount();
        while (display->myCanvas()->renderCount() == before) QApplication::processEvents();
    }

    Silent silent;
    std::unique_ptr<parmmenu> menu = std::make_unique<parmmenu>();
    ColorBarFrame bar;
    QStatusBar status;
    std::unique_ptr<SegyLoader> loader;
    std::unique_ptr<SeismicDisplay> display;
};

/// The process's largest memory so far, in bytes.
static double peakBytes()
{
    std::ifstream in("/proc/self/status");
    for (std::string line; std::getline(in, line);)
        if (line.rfind("VmHWM:", 0) == 0) return 1024.0 * std::stod(line.substr(6));
    return 0.0;
}

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const SegyBenchFile file(nTraces, nSamples, 5, nTraces);
    if (!file.isGood) return 1;
    const double sampleBytes = 4.0 * nTraces * nSamples;
    {
        const Line line(file);
    }
    const double allowed = 2.5 * sampleBytes + 120e6, peak = peakBytes();
    std::printf("FIGURE %-44s %6.0f MB  allowed %.0f MB  %s\n", "long line 30,000 x 2000, memory", peak * 1e-6,
                allowed * 1e-6, judge(peak, allowed));
    float last = 0.0f;
    printFigure(
        "long line opened and painted, by reading it", 1.5, sampleBytes, [&] { const Line line(file); },
        [&] { last = plainReadOfTraces(file.descriptor, nTraces, nSamples); });
    return benchStatus(last != 0.0f);
}
