/// Tells in the status line what is under the mouse.
#ifndef READOUTTOOL_H
#define READOUTTOOL_H

#include "display/readout.h"
#include "display/tools/canvastool.h"

class QPoint;
class SeismicDisplay;
class StatusLines;

/// Always asked, so that the read-out goes on whatever tool is active. Stands behind SeismicDisplay.
class ReadoutTool : public CanvasTool
{
public:
    ReadoutTool(const SeismicDisplay* display, StatusLines* lines) : _display(display), _lines(lines) {}
    /// Without data the moves of the mouse are for nobody.
    bool canvasEvent(QWidget* canvas, QEvent* event) override;
    /// The line for a position of the canvas; empty without data.
    QString lineAt(const QPoint& pos) const;

private:
    QString valuesAt(const ReadoutPosition& at) const;

    const SeismicDisplay* _display;
    StatusLines* _lines;
};

#endif
