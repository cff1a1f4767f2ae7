/// The difference of the last two screens among the tools of a window.
#ifndef DIFFERENCETOOL_H
#define DIFFERENCETOOL_H

#include "frame/windowtool.h"

class ScreenRow;
struct parmmenu;

/// Fills the display of the difference whenever one of its two screens may have another ensemble.
class DifferenceTool : public WindowTool
{
public:
    /// Both are lent and outlive this.
    DifferenceTool(ScreenRow* screens, parmmenu* menu) : _screens(screens), _menu(menu) {}

    /// Shows or hides it; nothing with one screen. Returns whether there are two.
    bool show(bool on);
    /// Subtracts anew, where the difference is shown; empty where a screen is.
    void load();

    void afterRecord(int screen) override;

private:
    ScreenRow* _screens;
    parmmenu* _menu;
};

#endif
