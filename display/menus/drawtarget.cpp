#include "display/menus/drawtarget.h"

#include "display/seismicdisplay.h"
#include "display/tools/canvastools.h"

DrawTarget displayTarget(SeismicDisplay* display)
{
    DrawTarget target;
    target.plot = display;
    target.borrowMouse = [display](CanvasTool* tool, bool on) {
        if (on)
            display->tools().borrow(tool);
        else
            display->tools().giveBack(tool);
    };
    return target;
}
