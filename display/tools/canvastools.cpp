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
        if (former) former->leave();
        if (tool) tool->enter();
    }
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

/// Asks one after the other; the first that keeps the event, empty if none does.
CanvasTools::Handle CanvasTools::ask(QEvent* event)
{
    std::vector<Handle> round = {_active};
    for (const Always& entry : _always) round.push_back(entry.tool);
    round.push_back(_base);
    for (const Handle& handle : round) {
        const auto tool = handle.lock();
        if (tool && tool->canvasEvent(_canvas, event)) return handle;
    }
    return Handle();
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
    const auto keeper = ask(event).lock();
    if (isPress && keeper) _kept[button] = keeper;
    return keeper != nullptr;
}
