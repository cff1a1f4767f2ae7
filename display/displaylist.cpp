#include "display/displaylist.h"

void DisplayList::insert(int i, SeismicDisplay* display)
{
    if (_displays.contains(display)) return;
    _displays.insert(i, display);
    emit added(display);
}

SeismicDisplay* DisplayList::takeAt(int i)
{
    SeismicDisplay* display = _displays.takeAt(i);
    emit removed(display, i);
    return display;
}

void DisplayList::clear()
{
    while (!isEmpty()) takeLast();
}
