/// The tab "Display" of the parameter menu: how traces are shown.
#ifndef DISPLAYMENU_H
#define DISPLAYMENU_H

#include "display/menus/displayselection.h"
#include "display/menus/parmcontrols.h"
#include "tracedata/orvinconstants.h"

#include <QWidget>

#include <functional>

class NumberEdit;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QPushButton;
class QSlider;
class SeismicDisplay;
class SeismicPlot;
struct Polarity;

/// Every control acts at once on the displays chosen, and each change ends in one repaint of them. The menu
/// keeps no parameters: it shows those of the first display chosen.
class DisplayMenu : public QWidget
{
    Q_OBJECT

public:
    /// The lists are lent and outlive the menu; the second may be null.
    DisplayMenu(const DisplayList* displaylist, const DisplayList* otherlist, QWidget* parent = nullptr);

    /// Shows another display: 0 all main ones, k the k-th of the others.
    void setDisplay(int id);
    /// As if it were chosen in the list.
    void setDisplayType(DisplayType type);
    /// Shows the automatic spacings and the RMS, which change with the data.
    void update();
    /// Shows scaling, range and RMS where the range follows the data.
    void updateGain();
    /// Shows all parameters of the plot.
    void updateDisplay();

private slots:
    void changeDisplay(int index);
    void changeDirection(int index);
    void changeScalar(int index);
    void changeClip();
    void changeMoveUp();
    void changeSliderTrace(int value);
    void changeTraceSpacing();
    void changeAutoTrace(int state);
    void changeSliderSample(int value);
    void changeSampleSpacing();
    void changeAutoSample(int state);
    void changeSliderGain(int value);
    void changeGain();
    /// The gain, or the range where colours show the amplitudes.
    void fitShownGain();
    void changeRange();
    void changeAutoRange(int state);
    void changeRMS();
    void changeBias();
    void changeApplyBias(int state);
    void changeAlias(int state);
    void changeOverlay(int state);
    void changePolarity();

private:
    void makeTraceRows(QGridLayout* grid);
    void makeSpacingRows(QGridLayout* grid);
    void makeAmplitudeRows(QGridLayout* grid);
    void makePolarityRow(QGridLayout* grid);
    void makeFoot(QGridLayout* grid);
    void connectControls();
    SeismicPlot* shownPlot() const;
    SeismicPlot* plotOf(SeismicDisplay* display) const;
    void applyToPlots(const std::function<void(SeismicPlot*)>& change);
    void applyToBoth(const std::function<void(SeismicPlot*)>& change);
    void setTraceSpacing(double tpi);
    void setSampleSpacing(double ips);
    void setGain(double db);
    void fitShownRange();
    void rebuildAll(bool resetOthers);
    void listControls();
    void showRange(const SeismicPlot* plot);
    void showSpacing();
    void showPolarity(const Polarity& polarity);
    void enableSpacing();
    double shownIPS() const;

    DisplaySelection _selection;
    ParmControls _controls;
    QComboBox* _displayBox;  // all controls are children of this widget
    QComboBox* _directBox;
    QComboBox* _scalarBox;
    NumberEdit* _clipEdit;
    NumberEdit* _moveEdit;
    QSlider* _tscaleSlider;
    NumberEdit* _tscaleEdit;
    QCheckBox* _tscaleBox;
    QSlider* _sscaleSlider;
    NumberEdit* _sscaleEdit;
    QCheckBox* _sscaleBox;
    QSlider* _gainSlider;
    NumberEdit* _gainEdit;
    QPushButton* _fitGainButton;
    NumberEdit* _lminEdit;
    NumberEdit* _lmaxEdit;
    QCheckBox* _lautoBox;
    NumberEdit* _rmsEdit;
    QLabel* _rmsLabel;
    NumberEdit* _biasEdit;
    QCheckBox* _biasBox;
    QCheckBox* _aliasBox;
    QComboBox* _polarityBox;
    QComboBox* _conventionBox;
    QCheckBox* _overlayBox;
    bool _isOverlay = false;  // the controls act on the overlay
    bool _doUpdate = false;   // values are only being shown: controls must not act
};

#endif
