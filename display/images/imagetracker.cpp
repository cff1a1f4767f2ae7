#include "display/images/imagetracker.h"

#include <algorithm>

void ImageTracker::setList(bool on, const QVector<int>& list)
{
    _isListed = on;
    _list = list;
    _position = -1;
}

void ImageTracker::setNumber(int number)
{
    if (!_isListed)
        _position = std::max(-1, number);
    else if (_position < 0 || _list.value(_position, 0) != number + 1)  // a number may stand twice
        _position = _list.indexOf(number + 1);
}

int ImageTracker::step(int steps, int nPictures)
{
    const int n = _isListed ? _list.size() : nPictures;
    if (n < 1) return -1;
    _position = int(std::clamp<long long>(static_cast<long long>(_position) + steps, 0, n - 1));
    return _isListed ? _list[_position] - 1 : _position;
}

int ImageTracker::notches(int delta)
{
    constexpr int notch = 120;
    if ((delta < 0) != (_turn < 0)) _turn = 0;  // the other way
    _turn = std::clamp(_turn, -notch, notch) + std::clamp(delta, -1000 * notch, 1000 * notch);
    const int whole = _turn / notch;
    _turn -= whole * notch;
    return whole;
}
