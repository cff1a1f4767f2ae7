/// Where windows stand: inside the screens that are there, and where the user has put them.
#ifndef SCREENPLACE_H
#define SCREENPLACE_H

#include <QMargins>
#include <QObject>
#include <QRect>
#include <QVector>

class QWidget;

/// The place of a window, its frame included, on that of the screens which holds the most of it, or else the nearest
/// to its top left corner: made smaller where it is larger, and moved where it reaches beyond. `screens` are the areas
/// free of panels; without any the place stays.
QRect clampedPlace(const QRect& place, const QVector<QRect>& screens);

/// What a window manager is taken to put around a window that hasn't been shown yet: a title bar and thin sides.
constexpr QMargins usualFrame(4, 30, 4, 4);

/// The areas of the present screens that are free of panels.
QVector<QRect> presentScreens();

/// Shrinks a window so that it fits a screen with its frame, though not below its smallest size; one that has been
/// given a place is moved inside, too. One that has been given no size is first made as large as it wishes.
void fitInto(QWidget* window, const QRect& screen);

/// Keeps dialogs and windows of the program on the screen, whenever one is shown, and lets a dialog come back where
/// it was when it was hidden. One for the whole program; it watches as long as it lives.
class ScreenPlace : public QObject
{
    Q_OBJECT

public:
    explicit ScreenPlace(QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
};

#endif
