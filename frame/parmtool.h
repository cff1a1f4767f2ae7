/// The parameter menu among the tools of a window.
#ifndef PARMTOOL_H
#define PARMTOOL_H

#include "frame/windowtool.h"

#include <QObject>

class DisplayList;
class ImageStorage;
class ParmMenuDialog;
class QWidget;

/// Makes the menu on its first use and keeps it up to what the displays show.
class ParmTool : public QObject, public WindowTool
{
    Q_OBJECT

public:
    /// All are lent; the lists and the store outlive the displays.
    ParmTool(QWidget* window, const DisplayList* displays, const DisplayList* others, ImageStorage* store);

    /// The menu, made now where there is none yet; a child of the window.
    ParmMenuDialog* menu();
    /// Null before its first use.
    ParmMenuDialog* madeMenu() const { return _menu; }
    /// Brings the menu before the user's eyes.
    void show();
    /// Asks for an overlay, or for none.
    void showOverlay(bool on);
    /// Shows amplitudes by colours.
    void showAsColor();

    void afterRecord(int screen) override;
    void parametersChanged() override;
    void overlayShown(bool on) override;
    void hide() override;
    void beforeDisplaysGo() override;

signals:
    /// The menu is there from now on.
    void menuMade(ParmMenuDialog* menu);
    /// The user wants an overlay, or none.
    void overlayWanted(bool on);

private:
    QWidget* _window;
    const DisplayList* _displays;
    const DisplayList* _others;
    ImageStorage* _store;
    ParmMenuDialog* _menu = nullptr;  // child of the window
};

#endif
