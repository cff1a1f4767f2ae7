#include "display/drawtarget.h"

#include "display/seismicdisplay.h"

#include <memory>

DrawTarget displayTarget(SeismicDisplay* display)
{
    DrawTarget target;
    target.plot = display;
    target.setMouseAside = [display, before = std::make_shared<MouseMode>(MouseMode::Zoom)](bool on) {
        if (on) {
            *before = display->mouseMode();
            display->setMouseMode(MouseMode::Drawing, true);
        } else if (display->mouseMode() == MouseMode::Drawing) {  // no other mode has taken over
            display->setMouseMode(*before, true);
        }
    };
    return target;
}
