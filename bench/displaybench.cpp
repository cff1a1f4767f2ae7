/// What the display costs above its kernels: a control change, the read-out, the next ensemble.
#include "bench/limits.h"
#include "bench/ratio.h"
#include "display/colors/colorbarframe.h"
#include "display/displayhost.h"
#include "display/images/myqwtplotcanvas.h"
#include "display/seismicdisplay.h"
#include "display/seismicplot.h"
#include "frame/sourcemenu.h"
#include "host/flow/standardwords.h"
#include "host/report.h"
#include "host/signal/bytes.h"
#include "sources/segyloader.h"
#include "sources/segywords.h"
#include "tracedata/menudefaults.h"
#include "tracedata/parmmenu.h"
#include "tracedata/seismicdata.h"

#include <QApplication>
#include <QFile>
#include <QStatusBar>
#include <QTemporaryDir>
#include <qwt_scale_map.h>

#include <cstring>
#include <memory>
#include <random>
#include <vector>

/// Hears nothing: a benchmark prints its own lines only.
struct Silent : Report {
    void line(const std::string&) override {}
    void box(const std::string&, const std::string&) override {}
};

/// A SEG-Y file of two ensembles of nTraces by nSamples, IEEE, seeded.
static void writeFile(const QString& name, int nTraces, int nSamples)
{
    std::mt19937 random(3);
    std::normal_distribution<float> normal;
    std::vector<char> reel(3600, '\0');
    const auto put16 = [](char* at, int value) {
        const int16_t word = int16_t(value);
        std::memcpy(at, &word, 2);
        endianSwap(at, 2, 1);
    };
    const auto put32 = [](char* at, int value) {
        std::memcpy(at, &value, 4);
        endianSwap(at, 4, 1);
    };
    put16(reel.data() + 3212, nTraces);
    put16(reel.data() + 3216, 2000);
    put16(reel.data() + 3220, nSamples);
    put16(reel.data() + 3224, 5);
    put16(reel.data() + 3228, 1);
    QFile file(name);
    file.open(QIODevice::WriteOnly);
    file.write(reel.data(), qint64(reel.size()));
    std::vector<char> trace(240 + 4 * size_t(nSamples), '\0');
    for (int i = 0; i < 2 * nTraces; ++i) {
        put32(trace.data() + 8, 1 + i / nTraces);
        put32(trace.data() + 12, 1 + i % nTraces);
        put16(trace.data() + 28, 1);
        for (int j = 0; j < nSamples; ++j) {
            const float v = normal(random);
            std::memcpy(trace.data() + 240 + 4 * j, &v, 4);
        }
        endianSwap(trace.data() + 240, 4, nSamples);
        file.write(trace.data(), qint64(trace.size()));
    }
}

/// A display of 1900 by 1000 with the first ensemble of a file.
struct Shown {
    Shown(const QString& folder, int nTraces, int nSamples)
    {
        const QString name = folder + QString("/%1.sgy").arg(nTraces);
        writeFile(name, nTraces, nSamples);
        setDisplayDefaults(menu.get());
        loader = SegyLoader::open({.files = name, .isort = 1, .indexbuilt = 1}, &silent);
        if (!loader) std::abort();
        setSourceDefaults(menu.get(), *loader);
        copySource(menu.get(), *loader);
        loader->loadNextEnsemble(1);
        display = std::make_unique<SeismicDisplay>(nullptr, "Bench", &status, nullptr, true, true, 0, nullptr);
        display->setColorBar(&bar);
        display->seismicData()->setHeaderWords(&segyWords());
        display->setMenu(menu.get());
        display->resize(1900, 1000);
        display->show();
        load();
        paint();
    }
    void load() { display->loadSeismicData(loader->getTraces(), loader->getHeaders(), loader->numTraces(), true); }
    void paint()
    {
        const int before = display->myCanvas()->renderCount();
        while (display->myCanvas()->renderCount() == before) QApplication::processEvents();
    }
    QImage rasterAlone()
    {
        const QRect area = display->canvas()->contentsRect();
        return display->seismicPlot()->saveImage(display->canvasMap(QwtPlot::xTop), display->canvasMap(QwtPlot::yLeft),
                                                 area);
    }

    Silent silent;
    std::unique_ptr<parmmenu> menu = std::make_unique<parmmenu>();
    ColorBarFrame bar;
    QStatusBar status;
    std::unique_ptr<SegyLoader> loader;
    std::unique_ptr<SeismicDisplay> display;
};

static void benchControl(Shown& shown)
{
    int renders = shown.display->myCanvas()->renderCount();
    float gain = 0.0f;
    const auto change = [&] {
        shown.display->seismicPlot()->setGain(gain = 1.0f - gain);
        shown.display->rebuildPlot();
        shown.paint();
        ++renders;
    };
    // A picture has to come from the raster to the canvas's cache, and from there to the window.
    QImage cache, window;
    const auto limit = [&] {
        const QImage picture = shown.rasterAlone();
        if (cache.size() != picture.size()) cache = window = QImage(picture.size(), picture.format());
        plainCopy(cache.bits(), picture.constBits(), size_t(picture.sizeInBytes()));
        plainCopy(window.bits(), cache.constBits(), size_t(picture.sizeInBytes()));
    };
    printFigure("control change to paint, 2000x2000", 1.3, 1900.0 * 1000.0 * 4.0, change, limit);
    if (shown.display->myCanvas()->renderCount() != renders)
        std::puts("a control change painted more than once: FAILED");
}

static void benchReadout(Shown& large, Shown& small)
{
    constexpr int nMoves = 2000;
    const auto moves = [](Shown& shown) {
        return [&shown] {
            for (int i = 0; i < nMoves; ++i)
                shown.status.showMessage(shown.display->readoutAt(QPoint(10 + i % 1700, 10 + i % 800)));
        };
    };
    const Ratio r = printFigure("mouse read-out, 2000x2000 by 20x20", 1.2, 0.0, moves(large), moves(small));
    const double micros = r.oursSec / nMoves * 1e6;
    std::printf("FIGURE %-44s %6.2f us  allowed 50 us  %s\n", "mouse read-out, one move", micros, judge(micros, 50.0));
}

static void benchNextEnsemble(Shown& shown)
{
    int step = 1;
    const auto whole = [&] {
        shown.loader->loadNextEnsemble(step = -step);
        shown.load();
        shown.paint();
    };
    // The four kernels alone: read and convert, copy, condition, draw.
    SeismicData copy;
    copy.setNumHeaderWords(shown.loader->numHeaderWords());
    copy.setSampleRate(shown.loader->sampleRate());
    EnsembleCopy storage;
    SeismicPlot plot(nullptr, &copy, "kernels");
    const auto kernels = [&] {
        std::string error;
        shown.loader->loadNextEnsemble(step = -step);
        storage.copy(shown.loader->getTraces(), shown.loader->getHeaders(), shown.loader->numTraces(), 0,
                     shown.loader->numSamples(), shown.loader->numHeaderWords(), &error);
        copy.clear();
        copy.loadAllTraces(storage.traces(), storage.headers(), shown.loader->numSamples(), shown.loader->numTraces());
        plot.computeNormalizer();
        shown.rasterAlone();
    };
    printFigure("next ensemble, 2000x2000 by its kernels", 1.5, 2000.0 * 2000.0 * 4.0, whole, kernels);
}

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QTemporaryDir folder;
    Shown large(folder.path(), 2000, 2000), small(folder.path(), 20, 20);
    benchControl(large);
    benchReadout(large, small);
    benchNextEnsemble(large);
    return benchStatus(true);
}
