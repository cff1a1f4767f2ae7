/// The tools of a main window.
#ifndef TOOLBENCH_H
#define TOOLBENCH_H

#include "frame/windowtool.h"

#include <memory>
#include <vector>

/// Owns the tools and calls them in the order in which they were added; beforeDisplaysGo() goes from the last one to
/// the first, so that a tool may lean on those before it.
class ToolBench
{
public:
    /// Puts a tool behind the others. Returns it, for whoever made it.
    template <class Tool>
    Tool* add(std::unique_ptr<Tool> tool)
    {
        Tool* added = tool.get();
        _tools.push_back(std::move(tool));
        return added;
    }

    void beforeDisplaysCome() const;
    void beforeRecord() const;
    void afterRecord(int screen) const;
    void screensDropped() const;
    void processEnsemble() const;
    void endOfData() const;
    void beforeData() const;
    void parametersChanged() const;
    void overlayShown(bool on) const;
    void hide() const;
    void beforeDisplaysGo() const;

    bool hasUnsaved() const;
    /// Has those save that have something unsaved.
    void save() const;

    /// A tool has been switched on: the others of its group leave.
    void switchedOn(const WindowTool* tool) const;
    /// The window itself takes what the group shares: all of it leave.
    void leave(WindowTool::Group group) const;

private:
    template <class Call>
    void forEach(Call call) const
    {
        for (size_t i = 0; i < _tools.size(); ++i) call(_tools[i].get());  // a call may bring another tool
    }

    std::vector<std::unique_ptr<WindowTool>> _tools;
};

#endif
