/// Tells in the status line what is under the mouse.
#ifndef READOUTTOOL_H
#define READOUTTOOL_H

#include "display/canvastool.h"

class SeismicDisplay;
class StatusLines;

/// Always asked, so that the read-out goes on whatever tool is active. Stands behind SeismicDisplay.
class ReadoutTool : public CanvasTool
{
public:
    ReadoutTool(const SeismicDisplay* display, StatusLines* lines) : _display(display), _lines(lines) {}
    /// Without data the moves of the mouse are for nobody.
    bool canvasEvent(QWidget* canvas, QEvent* event) override;

private:
    const SeismicDisplay* _display;
    StatusLines* _lines;
};

#endif
