/// The difference of the last two screens among the tools of a window.
#ifndef DIFFERENCETOOL_H
#define DIFFERENCETOOL_H

#include "frame/windowtool.h"

#include <QObject>

class ScreenRow;
struct parmmenu;

/// Fills the display of the difference whenever one of its two screens may have another ensemble.
class DifferenceTool : public QObject, public WindowTool
{
    Q_OBJECT

public:
    /// Both are lent and outlive this.
    DifferenceTool(ScreenRow* screens, parmmenu* menu) : _screens(screens), _menu(menu) {}

    /// Shows or hides it; nothing with one screen.
    void show(bool on);

    void afterRecord(int screen) override;
    void screensDropped() override { load(); }

signals:
    /// It is shown, or hidden, from now on.
    void shownChanged();

private:
    void load();

    ScreenRow* _screens;
    parmmenu* _menu;
};

#endif
