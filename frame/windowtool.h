/// What a main window tells its tools.
#ifndef WINDOWTOOL_H
#define WINDOWTOOL_H

/// A tool of a window: pictures, menus, pickers, a map. The window calls all of them through its ToolBench and knows
/// none by name. Every call is on the main thread; a tool overrides those that concern it.
class WindowTool
{
public:
    /// What the tools of a group can't have together: of these at most one is on.
    enum class Group { None, Mouse };

    virtual ~WindowTool() = default;

    /// The window's record is filled, and the displays are about to be made: begin with what the record says.
    virtual void beforeDisplaysCome() {}
    /// The records on the screens are about to leave: keep what would go with them.
    virtual void beforeRecord() {}
    /// An ensemble is on a screen, counted from 0; once for each screen.
    virtual void afterRecord(int /*screen*/) {}
    /// There are fewer screens; those that are left keep their records.
    virtual void screensDropped() {}
    /// An ensemble goes through a flow without being drawn: do with it what is to be done with each.
    virtual void processEnsemble() {}
    /// No record is left in this direction; in a flow that is processed the window goes next.
    virtual void endOfData() {}
    /// Another file, or another sort, is about to come under the screens.
    virtual void beforeData() {}
    /// Any parameter of the displays may have changed: show them anew.
    virtual void parametersChanged() {}
    /// An overlay has come, or gone.
    virtual void overlayShown(bool /*on*/) {}

    /// Whether closing the window would lose something.
    virtual bool hasUnsaved() const { return false; }
    /// Keeps it.
    virtual void save() {}
    /// The window is hidden, or closes: so do the tool's own windows.
    virtual void hide() {}
    /// The displays go after this call; a tool lets go of them.
    virtual void beforeDisplaysGo() {}

    virtual Group group() const { return Group::None; }
    /// Another of the group has been switched on.
    virtual void leave() {}
};

#endif
