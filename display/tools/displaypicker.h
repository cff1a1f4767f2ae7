/// What a display needs of a picker that a higher floor has put on it: the header picker is one.
#ifndef DISPLAYPICKER_H
#define DISPLAYPICKER_H

/// Called on the main thread; lent to the display until it is taken back with null.
class DisplayPicker
{
public:
    virtual ~DisplayPicker() = default;
    /// Its mouse mode begins or ends.
    virtual void enable(bool on) = 0;
    /// Another ensemble is on the screen.
    virtual void updateHeaders() = 0;
};

#endif
