#include "frame/toolbench.h"

#include <algorithm>

void ToolBench::beforeDisplaysCome() const
{
    forEach([](WindowTool* tool) { tool->beforeDisplaysCome(); });
}

void ToolBench::beforeRecord() const
{
    forEach([](WindowTool* tool) { tool->beforeRecord(); });
}

void ToolBench::afterRecord(int screen) const
{
    forEach([=](WindowTool* tool) { tool->afterRecord(screen); });
}

void ToolBench::screensDropped() const
{
    forEach([](WindowTool* tool) { tool->screensDropped(); });
}

void ToolBench::processEnsemble() const
{
    forEach([](WindowTool* tool) { tool->processEnsemble(); });
}

void ToolBench::endOfData() const
{
    forEach([](WindowTool* tool) { tool->endOfData(); });
}

void ToolBench::beforeData() const
{
    forEach([](WindowTool* tool) { tool->beforeData(); });
}

void ToolBench::parametersChanged() const
{
    forEach([](WindowTool* tool) { tool->parametersChanged(); });
}

void ToolBench::overlayShown(bool on) const
{
    forEach([=](WindowTool* tool) { tool->overlayShown(on); });
}

void ToolBench::hide() const
{
    forEach([](WindowTool* tool) { tool->hide(); });
}

void ToolBench::beforeDisplaysGo() const
{
    std::for_each(_tools.rbegin(), _tools.rend(), [](const auto& tool) { tool->beforeDisplaysGo(); });
}

bool ToolBench::hasUnsaved() const
{
    return std::any_of(_tools.begin(), _tools.end(), [](const auto& tool) { return tool->hasUnsaved(); });
}

void ToolBench::save() const
{
    forEach([](WindowTool* tool) {
        if (tool->hasUnsaved()) tool->save();
    });
}

void ToolBench::switchedOn(const WindowTool* switched) const
{
    if (switched->group() == WindowTool::Group::None) return;
    forEach([=](WindowTool* tool) {
        if (tool != switched && tool->group() == switched->group()) tool->leave();
    });
}

void ToolBench::leave(WindowTool::Group group) const
{
    forEach([=](WindowTool* tool) {
        if (group != WindowTool::Group::None && tool->group() == group) tool->leave();
    });
}
