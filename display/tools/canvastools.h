/// The mouse tools of one canvas: which is active, and who is asked before whom.
#ifndef CANVASTOOLS_H
#define CANVASTOOLS_H

#include "display/tools/canvastool.h"

#include <QMap>
#include <QObject>

#include <vector>

/// Every event of the canvas goes to the active tool, then to those that are always asked, lowest order first, then to
/// the base tool. The first that keeps it ends the round; else the plot gets it.
class CanvasTools : public QObject
{
    Q_OBJECT

public:
    /// Who is always asked, in this order.
    enum Order { StoredPictures = 100, Menu = 200, Readout = 300 };

    /// @param canvas  parent of this object
    explicit CanvasTools(QWidget* canvas);

    /// The tool that has the canvas while no other is active; may be null.
    void setBase(CanvasTool* base) { _base = handleOf(base); }
    void addAlways(CanvasTool* tool, int order);

    /// Makes a tool the active one, for good; null for the base tool. The former hears `leave`.
    void setTool(CanvasTool* tool);
    /// Ends a tool if it is the active one; the base tool follows.
    void endTool(CanvasTool* tool);
    /// Makes a tool the active one for a while.
    void borrow(CanvasTool* tool);
    /// Brings the tool back that was active before the borrowing, unless another has taken over since.
    void giveBack(CanvasTool* tool);
    /// The active tool, or the base tool; null without either.
    CanvasTool* tool() const;

    /// An event of the canvas, on its way to the plot. Returns whether it ends here.
    bool canvasEvent(QEvent* event);
    /// Has the events of the canvas come here by themselves, for a plot that doesn't hand them on.
    void watchCanvas();
    bool eventFilter(QObject* object, QEvent* event) override;

signals:
    /// Another tool may be active now.
    void toolChanged();

private:
    using Handle = std::weak_ptr<CanvasTool>;
    struct Always {
        int order;
        Handle tool;
    };

    static Handle handleOf(CanvasTool* tool) { return tool ? tool->handle() : Handle(); }
    void watch(CanvasTool* tool);
    void forget(const CanvasTool* tool);
    bool ask(QEvent* event, Handle* keeper);

    QWidget* _canvas;
    Handle _base, _active, _before;
    QMetaObject::Connection _goes;  // hears that the active one does
    std::vector<Always> _always;
    QMap<int, Handle> _kept;  // who kept the press of a button that is down
};

#endif
