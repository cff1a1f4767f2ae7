/// The mouse on stored pictures: steps from one to the next.
#ifndef IMAGETOOL_H
#define IMAGETOOL_H

#include "display/tools/canvastool.h"

class SeismicDisplay;
class StatusLines;
class QMouseEvent;
class QWheelEvent;

/// The middle button and the wheel show another picture. Always asked, and idle while the data are shown. Stands behind
/// SeismicDisplay.
class ImageTool : public CanvasTool
{
public:
    ImageTool(SeismicDisplay* display, StatusLines* lines) : _display(display), _lines(lines) {}

    bool canvasEvent(QWidget* canvas, QEvent* event) override;
    /// A picture was chosen, or the window has another size: the canvas may change some times again.
    void restart() { _nShownAgain = 0; }
    /// Shows the present picture anew once the axes have come to rest: of two zoomers the second sets its axes after
    /// the first has told of the zoom.
    void showAgain();

private:
    void resized();
    void pressed(const QMouseEvent* event);
    void moved(const QMouseEvent* event);
    void turned(const QWheelEvent* event);
    void step(int steps);

    SeismicDisplay* _display;
    StatusLines* _lines;
    int _nShownAgain = 0;  // for changes of the canvas since the picture was chosen
    int _oldX = 0;         // where the middle button was last seen
};

#endif
