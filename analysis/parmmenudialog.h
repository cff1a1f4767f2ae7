/// The tabbed parameter menu of a main window.
#ifndef PARMMENUDIALOG_H
#define PARMMENUDIALOG_H

#include "tracedata/orvinconstants.h"

#include <QDialog>

class ColorBarDialog;
class DisplayList;
class DisplayMenu;
class ImageDialog;
class ImageStorage;
class QButtonGroup;
class QHBoxLayout;
class QPushButton;
class QTabWidget;
class ScaleMenu;
class SeismicDisplay;

/// Holds the tabs that change how the displays look, and the choice of the display they act on. There is
/// no Apply: each control acts at once.
class ParmMenuDialog : public QDialog
{
    Q_OBJECT

public:
    /// The lists and the store are lent and outlive the dialog; the second list may be null. A button is made for
    /// the main list, under the name of its first display, and one for each of the others, which come and go with
    /// them.
    ParmMenuDialog(QWidget* parent, const DisplayList* displaylist, ImageStorage* imgstore,
                   const DisplayList* otherlist);
    /// Hides it first, so that a number that is just being typed is taken while all still stands: delete the
    /// dialog before the displays.
    ~ParmMenuDialog() override;

    /// Shows what has changed with the data, after a new ensemble.
    void update();
    /// Shows all parameters anew, after a new file.
    void updateAll();
    void updateGain();
    /// As if the type were chosen in the tab "Display".
    void setDisplayType(DisplayType type);
    /// Asks for an overlay, or for none, as a click on the box of the tab "Plot" does.
    void showOverlay(bool on);
    /// An overlay has come, or gone.
    void setOverlayMode(bool on);
    /// Adds a button to choose a display by; the first is checked.
    void addNewDisplay(SeismicDisplay* display);
    /// The tab "Image".
    ImageDialog* imageDialog() const { return _imd; }

signals:
    /// The user wants an overlay, or none.
    void overlayChanged(bool on);

public slots:
    /// 0 chooses the main displays, k the k-th of the others.
    void changeDisplay(int id);

private:
    void removeDisplay(int id);

    QTabWidget* _tabView;
    DisplayMenu* _displayMenu;
    ScaleMenu* _scaleMenu;
    ImageDialog* _imd;
    ColorBarDialog* _colordiag;
    QButtonGroup* _groupDisplay;
    QHBoxLayout* _displayLayout;
    QPushButton* _dismissButton;
    int _ibcount = 0;  // buttons made
    int _lastid = 0;   // the active one
};

#endif
