/// A main window of its own, for the GUI tests.
#ifndef WINDOWFIXTURE_H
#define WINDOWFIXTURE_H

#include "display/seismicdisplay.h"
#include "frame/mainwindow.h"
#include "frame/windowactions.h"
#include "sources/segyloadparm.h"
#include "tracedata/menudefaults.h"
#include "tracedata/parmmenu.h"

#include <QAction>

#include <memory>

/// A window of its own with the defaults, shown.
struct WindowFixture {
    std::unique_ptr<parmmenu> menu = std::make_unique<parmmenu>();
    std::unique_ptr<MainWindow> window;

    /// @param dotrevia  1 as a flow starts the window
    explicit WindowFixture(int dotrevia = 0)
    {
        setDisplayDefaults(menu.get());
        menu->dotrevia = dotrevia;
        window = std::make_unique<MainWindow>(nullptr, menu.get());
        window->buildMainPlot();
        window->show();
    }
    int open(const QString& name, int isort = 0, int indexbuilt = 0)
    {
        SegyLoadParm parm;
        parm.files = name;
        parm.isort = isort;
        parm.indexbuilt = indexbuilt;
        return window->loadSegyFile(parm);
    }
    QAction* action(const char* name) { return window->actionTable()->action(name); }
    int traces() { return window->display()->traceCount(); }
    QString shownKey() { return window->display()->axisTitle(QwtPlot::xTop).text().simplified(); }
};

#endif
