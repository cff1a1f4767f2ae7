/// How many screens, and the difference, in the menu "View".
#ifndef SCREENSMENU_H
#define SCREENSMENU_H

#include <QObject>

class QAction;
class QMenu;

/// Only shows and asks: who owns the screens hears its signals and tells it what is on the screen.
class ScreensMenu : public QObject
{
    Q_OBJECT

public:
    /// @param view  gets the entries, and owns this
    explicit ScreensMenu(QMenu* view);

    /// What is on the screen. @param count  of screens, 1 to ScreenRow::most
    void show(int count, bool isDifferenceOn);

signals:
    void countWanted(int n);
    void differenceWanted(bool on);

private:
    QAction* _counts[3];  // from one screen on; all are children of the menu
    QAction* _difference;
};

#endif
