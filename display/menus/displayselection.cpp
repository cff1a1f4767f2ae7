#include "display/menus/displayselection.h"

QList<SeismicDisplay*> DisplaySelection::mainlist() const
{
    if (_id == 0) return _displaylist->all();
    if (!_otherlist || _id < 1 || _id > _otherlist->size()) return {};
    return {_otherlist->all().at(_id - 1)};
}

SeismicDisplay* DisplaySelection::display() const
{
    const QList<SeismicDisplay*> displays = mainlist();
    return displays.isEmpty() ? nullptr : displays.first();
}

QList<SeismicDisplay*> DisplaySelection::allDisplays() const
{
    return _otherlist ? _displaylist->all() + _otherlist->all() : _displaylist->all();
}
