#include "frame/startmeridune.h"

#include "display/images/myqwtplotcanvas.h"
#include "display/seismicdisplay.h"
#include "frame/mainwindow.h"
#include "frame/resources.h"
#include "host/home.h"
#include "widgets/copymissingfiles.h"
#include "widgets/screenplace.h"

#include <QApplication>
#include <QIcon>

#include <chrono>
#include <clocale>
#include <cstdio>

static int meriduneac = 0;
static char** meriduneav = nullptr;
static parmmenu* meridunemenu = nullptr;
static velSemblanceStruct* meridunevelsemblance = nullptr;
static fbPickMenuStruct* meridunefbpickmenu = nullptr;
static std::chrono::steady_clock::time_point startTime;

int startMeridune(int ac, char** av, parmmenu* menu, velSemblanceStruct* velsemblance, fbPickMenuStruct* fbpickmenu)
{
    startTime = std::chrono::steady_clock::now();
    meriduneac = ac;
    meriduneav = av;
    meridunemenu = menu;
    meridunevelsemblance = velsemblance;
    meridunefbpickmenu = fbpickmenu;
    return 0;
}

static void sayTime(const char* what)
{
    const std::chrono::duration<double, std::milli> ms = std::chrono::steady_clock::now() - startTime;
    std::printf("MERIDUNE: %s after %.1f ms\n", what, ms.count());
    std::fflush(stdout);
}

/// With MERIDUNE_TIMING=1 the first paint of the empty window and of the first ensemble are told.
static void watchTiming(MainWindow* window)
{
    if (qgetenv("MERIDUNE_TIMING") != "1") return;
    SeismicDisplay* display = window->display();
    QObject::connect(display->myCanvas(), &MyQwtPlotCanvas::rendered, window, [display] {
        static bool toldEmpty = false, toldEnsemble = false;
        if (!toldEmpty) sayTime("empty window on screen");
        toldEmpty = true;
        if (toldEnsemble || display->traceCount() == 0) return;
        toldEnsemble = true;
        sayTime("first ensemble on screen");
    });
}

/// Shipped files, and the folders of the installation that get those which they lack.
static const struct {
    const char* from;
    const char* to;
} shipped[] = {
    {":/colors", "/port/misc"},
    {":/remap", "/port/db/segy"},
};

/// Makes the user's folder and puts the shipped files there.
static void fillHome()
{
    initResources();
    makeHome();
    for (const auto& row : shipped)
        if (copyMissingFiles(row.from, QString(GetHome()) + row.to) < 0)
            std::printf("MERIDUNE: the files of %s can't be copied to %s%s\n", row.from + 2, GetHome(), row.to);
    std::fflush(stdout);
}

int aloneMeriduneSEGY()
{
    // Stored pictures have a native window of their own; the canvases beside it stay as they are.
    QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    QApplication app(meriduneac, meriduneav);
    // The formats of files and of the status line have points, whatever the user's locale.
    std::setlocale(LC_NUMERIC, "C");
    fillHome();
    QApplication::setWindowIcon(QIcon(":/desktop/meridune-128.png"));
    QGuiApplication::setDesktopFileName("meridune");
    const ScreenPlace place;
    MainWindow window(nullptr, meridunemenu);
    window.setVelSemblance(meridunevelsemblance);
    window.setFBPickMenu(meridunefbpickmenu);
    window.buildMainPlot();
    watchTiming(&window);
    window.show();
    QCoreApplication::processEvents();
    if (!window.showSegyMenu(true, false)) return 0;
    return QApplication::exec();
}
