/// The tab "Color Bar" of the parameter menu: the colors of the bars, and color files.
#ifndef COLORBARDIALOG_H
#define COLORBARDIALOG_H

#include "display/colors/colorfile.h"
#include "display/menus/displayselection.h"

#include <QWidget>

#include <functional>

class ColorBarFrame;
class ColorStopTable;
class NumberEdit;
class QCheckBox;
class QGridLayout;
class QListWidget;
class QPushButton;

/// Edits the bars of the displays chosen, or of their overlays. The table acts with "Update", all else at
/// once; each change ends in one repaint of every display that is painted with a changed bar.
class ColorBarDialog : public QWidget
{
    Q_OBJECT

public:
    /// The lists are lent and outlive the dialog; the second may be null.
    ColorBarDialog(const DisplayList* displaylist, const DisplayList* otherlist, QWidget* parent = nullptr);

    /// Shows another display: 0 all main ones, k the k-th of the others.
    void setDisplay(int id);
    /// Whether there is an overlay whose bar can be chosen.
    void setOverlayMode(bool on);

public slots:
    /// Lists the color files of the user's folder anew.
    void loadColorFiles();

private slots:
    void changeNumColors();
    void changeScaled(int state);
    void changeDrawScale(int state);
    void changeBackground();
    void changeOverlay(int state);
    void loadFile();
    void resetColors();
    void updateColors();
    void saveColorMap();

private:
    void makeTable(QGridLayout* grid);
    void makeProperties(QGridLayout* grid);
    QList<ColorBarFrame*> bars() const;
    ColorBarFrame* shownBar() const;
    void applyToBars(const std::function<void(ColorBarFrame*)>& change);
    void takeBar();
    void showBar();
    void showTable();
    ColorFile tableColors() const;

    DisplaySelection _selection;
    ColorStopTable* _colorTable;  // all controls are children of this widget
    QPushButton* _resetButton;
    QPushButton* _updateButton;
    QPushButton* _saveButton;
    NumberEdit* _numColorsEdit;
    QCheckBox* _scaledBox;
    QCheckBox* _drawScaleBox;
    QPushButton* _backgroundButton;
    QListWidget* _fileList;
    QPushButton* _loadButton;
    QCheckBox* _overlayBox;

    /// What "Reset" goes back to.
    struct {
        ColorMap map = ColorMap::seismicColor();
        int numColors = 256;
        int colorMode = 1;
        QString file;
    } _former;
    bool _doUpdate = false;  // values are only being shown: controls must not act
};

#endif
