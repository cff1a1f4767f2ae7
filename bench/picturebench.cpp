/// A stored picture on its way to the screen, beside a bare XCopyArea of the same size. Needs an X server with a screen of
/// 4200 by 1200: what hangs over its edge isn't copied.
#include "bench/ratio.h"
#include "display/colors/colorbarframe.h"
#include "display/images/imagestorage.h"
#include "display/seismicdisplay.h"
#include "host/flow/standardwords.h"
#include "sources/segywords.h"
#include "tracedata/menudefaults.h"
#include "tracedata/parmmenu.h"
#include "tracedata/seismicdata.h"

#include <QApplication>
#include <QScreen>
#include <QX11Info>

#include <cmath>
#include <cstdio>
#include <memory>
#include <vector>

// Last: its macros take names that Qt uses.
#include <X11/Xlib.h>

static constexpr int nPictures = 4, nSteps = 40;

/// A display with a canvas of 1900 by 1000, with pictures of four ensembles.
struct Movie {
    std::unique_ptr<parmmenu> menu = std::make_unique<parmmenu>();
    ColorBarFrame bar;
    ImageStorage store;
    SeismicDisplay display{nullptr, "Bench", nullptr, nullptr, true, true, 0, nullptr};

    Movie()
    {
        setDisplayDefaults(menu.get());
        menu->_orvinruntime.numsmp = 500;
        menu->_orvinruntime.nth = standardWordCount;
        menu->ipkey = menu->ipkeyreal = standardWordIndex("FFID    ") + 1;
        menu->iskey = menu->iskeyreal = standardWordIndex("CHAN    ") + 1;
        display.setColorBar(&bar);
        display.seismicData()->setHeaderWords(&segyWords());
        display.setMenu(menu.get());
        display.setImageStorage(&store);
        display.setWindowFlag(Qt::X11BypassWindowManagerHint);
        display.move(0, 0);
        display.resize(1900, 1000);
        display.show();
        store.setStored(true);
        for (int i = 0; i < nPictures; ++i) load(i);
        grow();
        store.removeAll();
        for (int i = 0; i < nPictures; ++i) load(i);
        for (int i = 0; i < nPictures; ++i) show(i);  // each is at the server from now on
    }
    void grow()
    {
        QApplication::processEvents();
        display.resize(display.size() + QSize(1900, 1000) - display.canvas()->size());
        QApplication::processEvents();
    }
    void load(int number)
    {
        const int nTraces = 240, nSamples = 500;
        std::vector<std::vector<float>> samples(nTraces, std::vector<float>(nSamples));
        std::vector<std::vector<int>> words(nTraces, std::vector<int>(standardWordCount, 0));
        std::vector<float*> traces;
        std::vector<int*> heads;
        for (int i = 0; i < nTraces; ++i) {
            for (int j = 0; j < nSamples; ++j) samples[i][j] = std::sin(0.02f * j * (number + 2) + 0.1f * i);
            words[i][standardWordIndex("FFID    ")] = number;
            words[i][standardWordIndex("CHAN    ")] = 1 + i;
            words[i][standardWordIndex("TRC_TYPE")] = 1;
            traces.push_back(samples[i].data());
            heads.push_back(words[i].data());
        }
        display.loadSeismicData(traces.data(), heads.data(), nTraces, true);
        QApplication::processEvents();
    }
    void show(int i) { display.showImage(i); }
};

/// The limit: server-side pixmaps copied to a window of the same size, with one context.
struct BareCopy {
    Display* x = QX11Info::display();
    Window window;
    Pixmap pixmaps[nPictures];
    GC context;
    QSize size;

    explicit BareCopy(const QSize& wanted) : size(wanted)
    {
        XSetWindowAttributes attributes;
        attributes.override_redirect = True;
        window = XCreateWindow(x, RootWindow(x, QX11Info::appScreen()), 0, 0, unsigned(size.width()),
                               unsigned(size.height()), 0, 24, InputOutput, nullptr, CWOverrideRedirect, &attributes);
        XGCValues values;
        values.graphics_exposures = False;
        context = XCreateGC(x, window, GCGraphicsExposures, &values);
        for (int i = 0; i < nPictures; ++i) {
            pixmaps[i] = XCreatePixmap(x, window, unsigned(size.width()), unsigned(size.height()), 24);
            XSetForeground(x, context, 0x123456ul * unsigned(i + 1));
            XFillRectangle(x, pixmaps[i], context, 0, 0, unsigned(size.width()), unsigned(size.height()));
        }
    }
    ~BareCopy()
    {
        for (Pixmap pixmap : pixmaps) XFreePixmap(x, pixmap);
        XFreeGC(x, context);
        XDestroyWindow(x, window);
    }
    void copy(int i)
    {
        XCopyArea(x, pixmaps[i], window, context, 0, 0, unsigned(size.width()), unsigned(size.height()), 0, 0);
    }
    /// Where nothing covers it.
    void showAt(int left)
    {
        XMoveWindow(x, window, left, 0);
        XMapRaised(x, window);
        XSync(x, False);
    }
};

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    QApplication app(argc, argv);
    if (QGuiApplication::platformName() != "xcb") {
        std::puts("picturebench wants an X server: FAILED");
        return 1;
    }
    const QSize screen = app.primaryScreen()->size();
    if (screen.width() < 4200 || screen.height() < 1200) {
        std::puts("picturebench wants a screen of 4200 by 1200: FAILED");
        return 1;
    }
    Movie movie;
    const auto* window = movie.display.canvas()->findChild<QWidget*>("pictureWindow");
    const QSize size = movie.display.canvas()->size();
    if (!window || !window->isVisible() || size != QSize(1900, 1000)) {
        std::printf("the pictures don't take the short way, or have %d by %d pixels: FAILED\n", size.width(),
                    size.height());
        return 1;
    }
    BareCopy bare(size);
    const auto limit = [&] {
        for (int i = 0; i < nSteps; ++i) {
            bare.copy(i % nPictures);
            XSync(bare.x, False);
        }
    };
    const auto ours = [&] {
        for (int i = 0; i < nSteps; ++i) {
            movie.show(i % nPictures);
            XSync(bare.x, False);
        }
    };
    const auto withTitles = [&] {
        for (int i = 0; i < nSteps; ++i) {
            movie.show(i % nPictures);
            QApplication::processEvents();
            XSync(bare.x, False);
        }
    };
    bare.showAt(movie.display.width());  // the screen has room for both
    const double bytes = 4.0 * size.width() * size.height() * nSteps;
    printFigure("stored picture to the screen, 1900x1000", 1.2, bytes, ours, limit, 41);
    const Ratio whole = measureRatio(withTitles, limit);
    std::printf("FIGURE %-44s %6.2f ms  by a bare copy %.2f\n", "the same with its labels and title",
                whole.oursSec / nSteps * 1e3, whole.median);
    return benchStatus(true);
}
