/// The screens of a main window, side by side.
#ifndef SCREENROW_H
#define SCREENROW_H

#include "display/displaylist.h"

#include <QObject>

class ColorBarFrame;
class DisplayHost;
class ImageStorage;
class QSplitter;
class QStatusBar;
struct parmmenu;

/// What every display of a window gets; all of it lent, and there as long as the displays.
struct ScreenParts {
    QStatusBar* status = nullptr;
    QStatusBar* control = nullptr;
    ColorBarFrame* bar = nullptr;
    ImageStorage* images = nullptr;
    DisplayHost* host = nullptr;
};

/// Makes and owns the displays: the screens, those that are put aside until more are wanted again, and the difference,
/// which is the last of the list once it was made. Shows no ensemble by itself.
class ScreenRow : public QObject
{
    Q_OBJECT

public:
    static constexpr int most = 3;

    /// @param splitter  gets a column for each display; lent, lives longer
    /// @param menu      tells how many screens, and is told of changes; lent
    ScreenRow(QSplitter* splitter, parmmenu* menu, const ScreenParts& parts);
    ~ScreenRow() override;

    /// Makes the screens that the record asks for, 1 or more.
    void build();
    /// Changes their number, 1 to most; new ones take the look of the first. Returns how many there were.
    int setCount(int n);
    /// The first screen has the left axis, the last one in view the right axis; all are as wide as the others. A new
    /// one gets its size at once, for its first ensemble is spaced by it.
    void layout();
    /// Takes the ensembles off the screens from i on, and off the difference.
    void clearFrom(int i);

    /// The screens, and behind them the difference where there is one.
    const DisplayList* displays() const { return &_displays; }
    /// Displays of tools.
    DisplayList* others() { return &_others; }
    /// The last screen; null before build().
    SeismicDisplay* lastScreen() const { return _lastScreen; }

    /// Shows or hides the difference, which is made when it is first shown.
    void showDifference(bool on);
    /// Null before it was first shown.
    SeismicDisplay* difference() const { return _difference; }
    bool isDifferenceShown() const { return _isDifferenceShown; }

signals:
    /// A screen is there from now on; not for the difference.
    void screenMade(SeismicDisplay* screen);

private:
    SeismicDisplay* makeScreen();
    SeismicDisplay* makeDisplay(const QString& title, bool hasLeft, bool hasRight, int column, int number);
    void makeDifference();
    int screenCount() const { return _displays.size() - (_difference ? 1 : 0); }

    QSplitter* _splitter;
    parmmenu* _menu;
    ScreenParts _parts;
    DisplayList _displays, _others;
    QList<SeismicDisplay*> _spare;  // hidden until more screens are wanted again
    SeismicDisplay* _lastScreen = nullptr;
    SeismicDisplay* _difference = nullptr;
    bool _isDifferenceShown = false;
};

#endif
