#include "display/displayselection.h"

QList<SeismicDisplay*> DisplaySelection::mainlist() const
{
    if (_id == 0) return *_displaylist;
    if (!_otherlist || _id < 1 || _id > _otherlist->size()) return {};
    return {_otherlist->at(_id - 1)};
}

SeismicDisplay* DisplaySelection::display() const
{
    const QList<SeismicDisplay*> displays = mainlist();
    return displays.isEmpty() ? nullptr : displays.first();
}

QList<SeismicDisplay*> DisplaySelection::allDisplays() const
{
    return _otherlist ? *_displaylist + *_otherlist : *_displaylist;
}
