/// What a main window brings along from the last session.
#ifndef WINDOWSESSION_H
#define WINDOWSESSION_H

#include "tracedata/parmfield.h"

#include <vector>

class ColorBarFrame;
class QMainWindow;
class Report;
struct parmmenu;

/// The fields of the menu record that a session leaves to the next; another one is another row.
const std::vector<ParmField<parmmenu>>& sessionFields();

/// Place, tool bars and panels, colour map, and the screens. A window of a flow has as many screens as the flow says.
class WindowSession
{
public:
    /// All are lent and outlive this.
    WindowSession(QMainWindow* window, ColorBarFrame* bar, parmmenu* menu, Report* report)
        : _window(window), _bar(bar), _menu(menu), _report(report)
    {
    }

    /// Before the screens are made. Says a line of a colour file that can't be read.
    void restore() const;
    void keep() const;

private:
    QMainWindow* _window;
    ColorBarFrame* _bar;
    parmmenu* _menu;
    Report* _report;
};

#endif
