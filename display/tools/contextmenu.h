/// The menu that opens on the canvas, and who adds entries to it.
#ifndef CONTEXTMENU_H
#define CONTEXTMENU_H

#include "display/tools/canvastool.h"
#include "display/tools/orderedlist.h"

#include <QObject>

class QMenu;
class QPoint;

/// Adds what can be done at a point of the canvas. Called on the main thread, each time that the menu opens.
class ContextEntries
{
public:
    virtual ~ContextEntries() = default;
    /// @param menu  gets actions, connected to what they do; it goes when it closes
    /// @param pos   on the canvas, in logical pixels
    virtual void addEntries(QMenu* menu, const QPoint& pos) = 0;
};

/// Opens with the right button and Shift, if anybody has an entry there.
class ContextMenu : public QObject, public CanvasTool
{
    Q_OBJECT

public:
    /// The lowest order stands highest. Lent until they are removed.
    void add(ContextEntries* entries, int order);
    void remove(ContextEntries* entries);
    bool isInUse() const { return !_entries.isEmpty(); }

    bool canvasEvent(QWidget* canvas, QEvent* event) override;

signals:
    /// It may have come into use, or out of it.
    void usageChanged();

private:
    OrderedList<ContextEntries> _entries;
};

#endif
