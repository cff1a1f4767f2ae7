/// Stored pictures among the tools of a window: the boxes "Save Images" and "Show Images", and collections.
#ifndef IMAGESTORETOOL_H
#define IMAGESTORETOOL_H

#include "frame/windowtool.h"

#include <QObject>

class DisplayList;
class ImageStorage;
class ParmMenuDialog;
class ParmTool;
class QWidget;
class WindowActions;
struct parmmenu;

/// Has pictures stored before a record leaves, and shows the data again when another one comes.
class ImageStoreTool : public QObject, public WindowTool
{
    Q_OBJECT

public:
    /// @param window  has the boxes of the user, and his messages
    /// @param parms   its menu has the tab of the pictures
    /// All are lent and outlive this.
    ImageStoreTool(QWidget* window, ImageStorage* store, ParmTool* parms, const DisplayList* displays,
                   WindowActions* actions, parmmenu* menu);

    /// How many pictures a collection takes; true if more than one.
    bool isCollecting(int* n) const;
    void setCollecting(bool on);
    void setStored(bool on);
    /// Pictures in place of the data, or the data again. Without pictures a box says so.
    void showPictures(bool on);

    /// Stores, or collects, from the start where the record says so.
    void beforeDisplaysCome() override;
    void beforeRecord() override;
    void afterRecord(int screen) override;
    void beforeData() override;
    void hide() override;

signals:
    /// The pictures have taken the mouse, or left it.
    void viewingChanged();

private:
    void followStore();
    void followMenu(ParmMenuDialog* made);
    void endViewing();

    QWidget* _window;
    ImageStorage* _store;
    ParmTool* _parms;
    const DisplayList* _displays;
    WindowActions* _actions;
    parmmenu* _menu;
    bool _isViewing = false;       // stored pictures are shown
    bool _couldGoForward = false;  // before they were
};

#endif
