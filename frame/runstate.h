/// What the flow loop reads of the window: where to go next, and how the user left.
#ifndef RUNSTATE_H
#define RUNSTATE_H

/// Plain members with their transitions. Slots that run inside the nested event loop write it, the loop
/// reads it when the events are through; all on the main thread.
struct RunState {
    bool _doExit = false;     ///< the window was closed
    int _direction = 99;      ///< 0 to 5 is a navigation, which the loop waits for
    bool _contFlow = false;   ///< the flow goes on
    bool _closeFlow = false;  ///< ... without the window
    bool _doHide = false;     ///< ... with the window hidden
    int _inext = 0;           ///< "next" presses not yet served

    /// What the loop is to do when the user has left: 99 stop, 98 go on without the window, 97 go on with
    /// it. Stores it as the direction, outside the range that ends a wait, and returns it.
    int resetDirection();
    /// Serves one "next" press. Returns whether any remain.
    bool getMoreRecords();
    void pressNext();
    void pressPrevious();
    /// "Exit/Continue Flow".
    void continueFlow();
    /// "Interactive/Process Flow" and, with hide, "Exit/Process Flow".
    void processFlow(bool hide);
};

#endif
