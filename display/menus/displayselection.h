/// The displays that a menu's controls act on.
#ifndef DISPLAYSELECTION_H
#define DISPLAYSELECTION_H

#include "display/displaylist.h"

/// Either all main displays, or a single one of the others. Both lists are lent, and looked at anew at each
/// question, so that displays may come and go; the second may be null.
class DisplaySelection
{
public:
    DisplaySelection(const DisplayList* displaylist, const DisplayList* otherlist)
        : _displaylist(displaylist), _otherlist(otherlist)
    {
    }

    /// 0 is the main list, k the k-th entry of the others, counted from 1.
    void setDisplay(int id) { _id = id; }
    /// The displays chosen.
    QList<SeismicDisplay*> mainlist() const;
    /// The first of them, null if there is none.
    SeismicDisplay* display() const;
    /// The main displays.
    QList<SeismicDisplay*> mainDisplays() const { return _displaylist->all(); }
    /// The main displays and the others.
    QList<SeismicDisplay*> allDisplays() const;

private:
    const DisplayList* _displaylist;
    const DisplayList* _otherlist;
    int _id = 0;
};

#endif
