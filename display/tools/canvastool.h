/// A tool that works with the mouse on the canvas of a plot.
#ifndef CANVASTOOL_H
#define CANVASTOOL_H

#include <QObject>
#include <QString>

#include <memory>

class QEvent;
class QWidget;

/// Made active by CanvasTools::setTool, on one canvas or on several. What it must know of the traces it asks the
/// display's EnsembleView, whose signals tell when they change.
///
/// A tool may go at any time: the canvas then belongs to its base tool again.
class CanvasTool
{
public:
    CanvasTool() = default;
    virtual ~CanvasTool() = default;
    CanvasTool(const CanvasTool&) = delete;
    CanvasTool& operator=(const CanvasTool&) = delete;

    /// An event of the canvas, before the plot has seen it. Returns whether nobody else is to hear of it; the release
    /// of a button whose press was kept so comes here too, whatever tool is active by then, and goes no further.
    virtual bool canvasEvent(QWidget* canvas, QEvent* event) = 0;
    /// What the control line adds while the tool is active; blanks in front set it off.
    virtual QString controlText() const { return QString(); }
    /// Whether the plain mouse buttons are the tool's: zooming and panning then want Ctrl.
    virtual bool takesPlainButtons() const { return true; }
    /// The tool becomes active on a canvas.
    virtual void enter() {}
    /// Another one takes over there.
    virtual void leave() {}

    /// Points at the tool as long as it lives.
    std::weak_ptr<CanvasTool> handle() const { return _self; }
    /// Tells by `destroyed` that the tool has gone.
    const QObject* life() const { return &_life; }

private:
    QObject _life;  // goes after the handle, so that who hears of it finds the handle empty
    std::shared_ptr<CanvasTool> _self{this, [](CanvasTool*) {}};
};

#endif
