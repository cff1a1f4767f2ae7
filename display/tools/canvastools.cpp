#include "display/tools/canvastools.h"

#include <QMouseEvent>
#include <QWidget>

#include <algorithm>

CanvasTools::CanvasTools(QWidget* canvas) : QObject(canvas), _canvas(canvas) {}

void CanvasTools::watchCanvas()
{
    _canvas->installEventFilter(this);
}

void CanvasTools::addAlways(CanvasTool* tool, int order)
{
    const auto isLater = [order](const Always& entry) { return entry.order > order; };
    _always.insert(std::find_if(_always.begin(), _always.end(), isLater), {order, handleOf(tool)});
}

CanvasTool* CanvasTools::tool() const
{
    const auto active = _active.lock();
    return active ? active.get() : _base.lock().get();
}

void CanvasTools::setTool(CanvasTool* tool)
{
    const auto former = _active.lock();
    _before.reset();
    if (former.get() != tool) {
        _active = handleOf(tool);  // first: who leaves may ask who is active
        watch(tool);
        if (former) former->leave();
        if (tool) tool->enter();
    }
    emit toolChanged();
}

/// A tool that goes while it is active gives the canvas back, and whoever shows the active one hears of it.
void CanvasTools::watch(CanvasTool* tool)
{
    disconnect(_goes);
    if (tool) _goes = connect(tool->life(), &QObject::destroyed, this, [this, tool] { forget(tool); });
}

void CanvasTools::forget(const CanvasTool* tool)
{
    const auto active = _active.lock();  // an event that it is just handling keeps the handle
    if (active && active.get() != tool) return;
    _active.reset();
    emit toolChanged();
}

void CanvasTools::endTool(CanvasTool* tool)
{
    if (_active.lock().get() == tool) setTool(nullptr);
}

void CanvasTools::borrow(CanvasTool* tool)
{
    const Handle before = _active;
    setTool(tool);
    _before = before;
}

void CanvasTools::giveBack(CanvasTool* tool)
{
    if (_active.lock().get() == tool) setTool(_before.lock().get());
}

/// Asks one after the other. Whether one keeps the event, and the first that does, who may go by that.
bool CanvasTools::ask(QEvent* event, Handle* keeper)
{
    std::vector<Handle> round = {_active};
    for (const Always& entry : _always) round.push_back(entry.tool);
    round.push_back(_base);
    for (const Handle& handle : round) {
        const auto tool = handle.lock();
        if (!tool || !tool->canvasEvent(_canvas, event)) continue;
        *keeper = handle;
        return true;
    }
    return false;
}

bool CanvasTools::eventFilter(QObject* object, QEvent* event)
{
    return object == _canvas && canvasEvent(event);
}

bool CanvasTools::canvasEvent(QEvent* event)
{
    const bool isPress = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    const bool isRelease = event->type() == QEvent::MouseButtonRelease;
    const int button = isPress || isRelease ? static_cast<QMouseEvent*>(event)->button() : Qt::NoButton;
    if (isPress) _kept.remove(button);  // its release went astray
    if (isRelease && _kept.contains(button)) {
        const auto keeper = _kept.take(button).lock();
        if (keeper) keeper->canvasEvent(_canvas, event);
        return true;
    }
    Handle keeper;
    if (!ask(event, &keeper)) return false;
    if (isPress) _kept[button] = keeper;
    return true;
}
