/// Which stored picture the mouse has come to.
#ifndef IMAGETRACKER_H
#define IMAGETRACKER_H

#include <QVector>

/// Steps through the numbers of the pictures, or through a list of them that the user has chosen. It stops at
/// both ends.
class ImageTracker
{
public:
    /// With on only the listed pictures are met, counted from 1; setNumber tells anew where it stands.
    void setList(bool on, const QVector<int>& list);
    /// This picture, from 0, is on the screen; -1 is none. One that isn't listed stands before the list.
    void setNumber(int number);
    /// The picture that many steps on, from 0; -1 where there is none.
    /// @param nPictures  held by the store
    int step(int steps, int nPictures);
    /// Whole notches of a wheel; the rest is kept for the next turn.
    int notches(int delta);

private:
    bool _isListed = false;
    QVector<int> _list;
    int _position = -1;  // in the store, or in the list; -1 is before both
    int _turn = 0;       // eighths of a degree short of a notch
};

#endif
