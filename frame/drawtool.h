/// Drawing on the canvas among the tools of a window.
#ifndef DRAWTOOL_H
#define DRAWTOOL_H

#include "frame/windowtool.h"

#include <QObject>

class DisplayList;
class DrawDialog;
class QWidget;
class ToolBench;

/// Makes the dialog "Draw on Canvas" on its first use; it draws on all displays of the list. While it draws it has the
/// mouse.
class DrawTool : public QObject, public WindowTool
{
public:
    /// @param bench  hears when drawing begins
    /// All are lent; list and bench outlive the dialog.
    DrawTool(QWidget* window, const DisplayList* displays, const ToolBench* bench);

    void show();

    void hide() override;
    Group group() const override { return Group::Mouse; }
    void leave() override;

private:
    QWidget* _window;
    const DisplayList* _displays;
    const ToolBench* _bench;
    DrawDialog* _dialog = nullptr;  // child of the window
};

#endif
