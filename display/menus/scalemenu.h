/// The tab "Plot" of the parameter menu: grids, key labels, gain control, phase and the overlay.
#ifndef SCALEMENU_H
#define SCALEMENU_H

#include "display/menus/displayselection.h"
#include "display/menus/parmcontrols.h"
#include "tracedata/wordnumber.h"

#include <QStringList>
#include <QWidget>

#include <functional>

class NumberEdit;
class QCheckBox;
class QComboBox;
class QLabel;
class QSlider;
class QVBoxLayout;
class QwtPlotGrid;
class SeismicDisplay;
class SeismicPlot;

/// Every control acts at once on the displays chosen, and each change ends in one repaint of them. The
/// conditioners work on the plots' own copies: the data stay as they are, and each new ensemble goes through
/// the same chain.
class ScaleMenu : public QWidget
{
    Q_OBJECT

public:
    /// The lists are lent and outlive the menu; the second may be null.
    ScaleMenu(const DisplayList* displaylist, const DisplayList* otherlist, QWidget* parent = nullptr);

    /// Shows another display: 0 all main ones, k the k-th of the others.
    void setDisplay(int id);
    /// Lists the header words of the data, which are first known with the first ensemble.
    void update();
    /// Shows or hides the overlay, as a click on its box does.
    void showOverlay(bool on);
    /// An overlay has come, or gone: one that was made after its opacity was chosen takes it.
    void setOverlayMode(bool on);

signals:
    /// The overlay is wanted, or not any more.
    void overlayChanged(bool on);
    /// A conditioner was changed, and with it the amplitudes that the range may follow.
    void conditioningChanged();

private slots:
    void changeApplyTGrid(int state);
    void changeMajorTGrid();
    void changeApplyMinorTGrid(int state);
    void changeMinorTGrid();
    void changeApplySGrid(int state);
    void changeMajorSGrid();
    void changeApplyMinorSGrid(int state);
    void changeMinorSGrid();
    void changePriLabel(const QString& text);
    void changeSecLabel(const QString& text);
    void changeApplyAGC(int state);
    void changeAGCWin();
    void changePhase(int state);
    void changeSliderPhase(int value);
    void changePhaseValue();
    void changeOverlay(int state);
    void changeSliderOverlay(int value);
    void changeOverlayValue();

private:
    void makeGrids(QVBoxLayout* column);
    void makeHeaders(QVBoxLayout* column);
    void makeConditioners(QVBoxLayout* column);
    void makeOverlay(QVBoxLayout* column);
    void connectControls();
    void showDisplay();
    void buildHeaderList();
    void showLabel(QComboBox* box, WordFrom0 word);
    WordFrom0 headerOf(const QString& text) const;
    void applyToGrids(const std::function<void(QwtPlotGrid*)>& change);
    void applyToLabels(const std::function<void(SeismicDisplay*)>& change);
    void condition(const std::function<void(SeismicPlot*)>& change);
    void setPhase(bool state, int angle);
    void setOpacity(int percent);
    void enableOpacity();

    DisplaySelection _selection;
    ParmControls _controls;
    QStringList _hlist;   // header names of 8 characters
    QStringList _hvlist;  // texts for the combos
    QList<WordFrom0> _hindex;
    QCheckBox* _gridTBox;  // all controls are children of this widget
    NumberEdit* _gridTMajorEdit;
    QCheckBox* _gridTMinorBox;
    NumberEdit* _gridTMinorEdit;
    QCheckBox* _gridSBox;
    NumberEdit* _gridSMajorEdit;
    QCheckBox* _gridSMinorBox;
    NumberEdit* _gridSMinorEdit;
    QComboBox* _header1Box;
    QComboBox* _header2Box;
    QComboBox* _prilBox;
    QComboBox* _seclBox;
    QCheckBox* _agcBox;
    NumberEdit* _agcEdit;
    QCheckBox* _phseBox;
    QSlider* _phseSlider;
    NumberEdit* _phseEdit;
    QCheckBox* _opacBox;
    QSlider* _opacSlider;
    NumberEdit* _opacEdit;
    QLabel* _opacLabel;
    bool _doUpdate = false;  // values are only being shown: controls must not act
};

#endif
