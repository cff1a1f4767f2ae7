#include "frame/windowsession.h"

#include "display/colors/colorbarframe.h"
#include "frame/parmsettings.h"
#include "frame/screenrow.h"
#include "frame/windowsettings.h"
#include "host/report.h"
#include "tracedata/parmmenu.h"
#include "widgets/appsettings.h"
#include "widgets/screenplace.h"

#include <QMainWindow>
#include <QScreen>

const std::vector<ParmField<parmmenu>>& sessionFields()
{
    static const std::vector<ParmField<parmmenu>> fields = {
        {&parmmenu::iscreens, {"screens", "", 1, ScreenRow::most, InSession, true}},
        {&parmmenu::idifference, {"difference", "", 0, 1, InSession, true}},
    };
    return fields;
}

void WindowSession::restore() const
{
    AppSettings settings;
    const QRect area = _window->screen() ? _window->screen()->geometry() : QRect(0, 0, 1280, 1024);
    const WindowSettings kept =
        clampedSettings(readWindowSettings(&settings, area, _menu->ireset != 0), presentScreens());
    // A flow's menu tells how many; a record that asks for several gets them.
    if (_menu->dotrevia == 0 && _menu->inputtool == 0 && _menu->iscreens == 1)
        readParms(sessionFields(), InSession, &settings, _menu);
    _window->resize(kept.size);
    _window->move(kept.pos);
    if (!kept.state.isEmpty()) _window->restoreState(kept.state);
    if (!kept.colormap.isEmpty() && !_bar->loadColorMapFile(kept.colormap))
        _report->line("MERIDUNE: the colour file " + kept.colormap.toStdString() +
                      " can't be read, using the built-in map\n");
}

void WindowSession::keep() const
{
    AppSettings settings;
    writeWindowSettings(&settings, {_window->pos(), _window->size(), _bar->colorFile(), _window->saveState()});
    if (_menu->dotrevia != 0) return;
    writeParms(sessionFields(), InSession, *_menu, &settings);
}
