#include "display/tools/pickertools.h"

#include "display/tools/displaypicker.h"

void PickerTool::setHandler(CanvasTool* handler)
{
    _handler = handler ? handler->handle() : std::weak_ptr<CanvasTool>();
}

bool PickerTool::canvasEvent(QWidget* canvas, QEvent* event)
{
    const auto handler = _handler.lock();
    return handler && handler->canvasEvent(canvas, event);
}

void PickerTool::enter()
{
    if (_picker) _picker->enable(true);
    if (const auto handler = _handler.lock()) handler->enter();
}

void PickerTool::leave()
{
    if (_picker) _picker->enable(false);
    if (const auto handler = _handler.lock()) handler->leave();
}

void PickerTool::ensembleShown() const
{
    if (_picker) _picker->updateHeaders();
}

void PickerTools::ensembleShown() const
{
    for (const PickerTool& tool : _tools) tool.ensembleShown();
}
