/// The dialog "Titles" among the tools of a window.
#ifndef TITLETOOL_H
#define TITLETOOL_H

#include "frame/windowtool.h"

#include <QObject>

class DisplayList;
class QStatusBar;
class QWidget;
class Titles;

/// Makes the dialog "Titles" on its first use.
class TitleTool : public QObject, public WindowTool
{
    Q_OBJECT

public:
    /// All are lent; the list and the status bar outlive the dialog.
    TitleTool(QWidget* window, const DisplayList* displays, QStatusBar* statusBar);

    void show();
    void hide() override;

signals:
    /// The main title is to show area and line, or not.
    void areaLineTitleWanted(bool on);

private:
    QWidget* _window;
    const DisplayList* _displays;
    QStatusBar* _statusBar;
    Titles* _dialog = nullptr;  // child of the window
};

#endif
