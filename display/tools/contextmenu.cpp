#include "display/tools/contextmenu.h"

#include <QMenu>
#include <QMouseEvent>

void ContextMenu::add(ContextEntries* entries, int order)
{
    _entries.add(entries, order);
    emit usageChanged();
}

void ContextMenu::remove(ContextEntries* entries)
{
    _entries.remove(entries);
    emit usageChanged();
}

bool ContextMenu::canvasEvent(QWidget* canvas, QEvent* event)
{
    if (event->type() != QEvent::MouseButtonRelease) return false;
    const auto* release = static_cast<QMouseEvent*>(event);
    if (release->button() != Qt::RightButton || !(release->modifiers() & Qt::ShiftModifier)) return false;
    auto* menu = new QMenu(canvas);
    menu->setObjectName("contextMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (ContextEntries* entries : _entries.members()) entries->addEntries(menu, release->pos());
    if (menu->isEmpty()) {
        delete menu;
        return false;
    }
    menu->popup(release->globalPos() - QPoint(30, 10));  // its first entry is under the mouse
    return true;
}
