#include "display/menus/displaymenu.h"

#include "display/raster/displaytype.h"
#include "display/raster/fitgain.h"
#include "display/seismicdisplay.h"
#include "display/seismicplot.h"
#include "tracedata/parmmenu.h"
#include "widgets/namedcontrol.h"
#include "widgets/numberedit.h"
#include "widgets/waitcursor.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QSlider>

#include <algorithm>

DisplayMenu::DisplayMenu(const DisplayList* displaylist, const DisplayList* otherlist, QWidget* parent)
    : QWidget(parent), _selection(displaylist, otherlist)
{
    setObjectName("DisplayMenu");
    auto* grid = new QGridLayout(this);
    makeTraceRows(grid);
    makeSpacingRows(grid);
    makeAmplitudeRows(grid);
    makePolarityRow(grid);
    makeFoot(grid);
    grid->setColumnStretch(1, 1);
    listControls();
    connectControls();
    setDisplay(0);
}

/// The controls that show a parameter as it is.
void DisplayMenu::listControls()
{
    _controls.add("displayType", _displayBox);
    _controls.add("direction", _directBox);
    _controls.add("scaling", _scalarBox);
    _controls.add("clip", _clipEdit);
    _controls.add("gain", _gainSlider);
    _controls.add("gain", _gainEdit);
    _controls.add("rangeMin", _lminEdit);
    _controls.add("rangeMax", _lmaxEdit);
    _controls.add("autoRange", _lautoBox);
    _controls.add("bias", _biasEdit);
    _controls.add("applyBias", _biasBox);
    _controls.add("antialias", _aliasBox);
}

static QComboBox* makeCombo(const char* name, const QString& tip, const QStringList& choices)
{
    auto* combo = makeControl<QComboBox>(name, tip);
    combo->addItems(choices);
    return combo;
}

static QSlider* makeSlider(const char* name, const QString& tip, int least, int largest)
{
    auto* slider = makeControl<QSlider>(name, tip, Qt::Horizontal);
    slider->setRange(least, largest);
    slider->setMinimumWidth(slider->fontMetrics().horizontalAdvance(QString(24, 'x')));
    return slider;
}

/// Controls side by side, as wide as they want to be, in column 1 of a row.
static void addRow(QGridLayout* grid, const QString& label, const QList<QWidget*>& widgets)
{
    const int row = grid->rowCount();
    grid->addWidget(new QLabel(label), row, 0);
    auto* line = new QHBoxLayout;
    for (QWidget* widget : widgets) line->addWidget(widget, qobject_cast<QSlider*>(widget) ? 1 : 0);
    line->addStretch();
    grid->addLayout(line, row, 1);
}

void DisplayMenu::makeTraceRows(QGridLayout* grid)
{
    _displayBox = makeCombo("displayBox", tr("How the traces are drawn"), parmChoices("displayType", 7));
    _directBox = makeCombo("directBox", tr("Side at which the first trace stands"), parmChoices("direction", 2));
    _scalarBox = makeCombo("scalarBox",
                           tr("Amplitudes are divided by twice the mean of each trace, of the ensemble, or not at all"),
                           parmChoices("scaling", 3));
    _clipEdit = makeParmEdit("clip", "clipEdit", tr("Largest excursion, in trace widths"));
    _moveEdit = makeControl<NumberEdit>("moveEdit", tr("Ensembles that Next and Previous move by"), 1.0, 1e6);
    _moveEdit->setWhole(true);
    addRow(grid, "Trace Display Mode:", {_displayBox});
    addRow(grid, "Direction to Plot:", {_directBox});
    addRow(grid, "Trace Scaling:", {_scalarBox});
    addRow(grid, "Clip:", {_clipEdit, new QLabel("traces")});
    addRow(grid, "Forward/Back Moveup Increment:", {_moveEdit, new QLabel("ensembles")});
}

void DisplayMenu::makeSpacingRows(QGridLayout* grid)
{
    _tscaleSlider = makeSlider("tscaleSlider", tr("Trace spacing, in tenths of a trace per inch"), 1, 1000);
    _tscaleEdit = makeParmEdit("traceSpacing", "tscaleEdit", tr("Trace spacing, in traces per inch"));
    _tscaleBox = makeControl<QCheckBox>("tscaleBox", tr("All traces fill the width of the display"));
    addRow(grid,
           "Trace Spacing:", {_tscaleSlider, _tscaleEdit, new QLabel("TPI"), new QLabel("Automatic:"), _tscaleBox});
    _sscaleSlider = makeSlider("sscaleSlider", tr("Sample spacing, in tenths of an inch per second"), 1, 400);
    _sscaleEdit = makeControl<NumberEdit>("sscaleEdit", tr("Sample spacing, in inches per second"), 1e-3, 1e6);
    _sscaleBox = makeControl<QCheckBox>("sscaleBox", tr("All samples fill the height of the display"));
    addRow(grid,
           "Sample Spacing:", {_sscaleSlider, _sscaleEdit, new QLabel("IPS"), new QLabel("Automatic:"), _sscaleBox});
}

void DisplayMenu::makeAmplitudeRows(QGridLayout* grid)
{
    _gainSlider = makeSlider("gainSlider", tr("Gain, in dB"), int(plotParmField("gain").rule.least),
                             int(plotParmField("gain").rule.most));
    _gainEdit = makeParmEdit("gain", "gainEdit", tr("Gain, in dB"));
    _fitGainButton = makeControl<QPushButton>(
        "fitGainButton", tr("Sets the gain so that 98 of 100 samples stay inside the clip"), "Fit Gain");
    _fitGainButton->setAutoDefault(false);
    addRow(grid, "Gain:", {_gainSlider, _gainEdit, _fitGainButton});

    _lminEdit =
        makeParmEdit("rangeMin", "lminEdit", tr("Amplitude at the lower end of the color bar, after trace scaling"));
    _lmaxEdit =
        makeParmEdit("rangeMax", "lmaxEdit", tr("Amplitude at the upper end of the color bar, after trace scaling"));
    _lautoBox = makeControl<QCheckBox>("lautoBox", tr("The range follows the amplitudes of each ensemble"));
    addRow(grid,
           "Range Limit,   Min:", {_lminEdit, new QLabel("   Max:"), _lmaxEdit, new QLabel("Automatic:"), _lautoBox});

    _rmsEdit = makeControl<NumberEdit>("rmsEdit",
                                       tr("Sets the RMS amplitude until the next ensemble is measured; the "
                                          "automatic range of scaled traces is 1.4 times it"),
                                       0.0, 3.4e38);
    _rmsEdit->setPlaceholderText(tr("measured"));
    _rmsLabel = makeControl<QLabel>("rmsLabel", tr("RMS amplitude of the ensemble, in units of the samples"));
    addRow(grid, "RMS:", {_rmsEdit, _rmsLabel, new QLabel("   Amplitude")});

    _biasEdit = makeParmEdit("bias", "biasEdit", tr("Added to the samples after the gain, in units of the samples"));
    _biasBox = makeControl<QCheckBox>("biasBox", tr("Apply the bias"));
    addRow(grid, "Bias:", {_biasEdit, _biasBox});
    _aliasBox = makeControl<QCheckBox>("aliasBox", tr("Low-pass traces that have more samples than pixels"));
    addRow(grid, "AntiAlias:", {_aliasBox});
}

void DisplayMenu::makePolarityRow(QGridLayout* grid)
{
    _polarityBox =
        makeCombo("polarityBox", tr("What you know about the polarity of this file; no sample changes by it"),
                  {"Unknown", "Normal", "Reversed"});
    _conventionBox =
        makeCombo("conventionBox", tr("Whose convention says so: choose one or type another"), {"SEG", "European"});
    _conventionBox->setEditable(true);
    _conventionBox->setInsertPolicy(QComboBox::NoInsert);
    _conventionBox->lineEdit()->setMaxLength(Polarity::longestConvention);
    addRow(grid, "Polarity:", {_polarityBox, new QLabel("by convention"), _conventionBox});
}

void DisplayMenu::showPolarity(const Polarity& polarity)
{
    _polarityBox->setCurrentIndex(polarity.sense);
    if (polarity.sense != Polarity::Unknown) _conventionBox->setEditText(polarity.convention);
    _conventionBox->setEnabled(polarity.sense != Polarity::Unknown);
}

/// The statement is about the file, which all screens show.
void DisplayMenu::changePolarity()
{
    if (_doUpdate) return;
    Polarity polarity;
    polarity.sense = Polarity::Sense(_polarityBox->currentIndex());
    if (polarity.sense != Polarity::Unknown) polarity.convention = _conventionBox->currentText().simplified();
    _conventionBox->setEnabled(polarity.sense != Polarity::Unknown);
    for (SeismicDisplay* display : _selection.allDisplays())
        if (!(display->polarity() == polarity)) display->statePolarity(polarity);
}

void DisplayMenu::makeFoot(QGridLayout* grid)
{
    _overlayBox = makeControl<QCheckBox>("overlayBox", tr("The controls act on the overlay data, if there are any"),
                                         "Edit Overlay Display");
    grid->addWidget(_overlayBox, grid->rowCount(), 0, 1, 2);
    grid->setRowStretch(grid->rowCount(), 1);
    grid->addWidget(new QLabel("Mouse:   MB1: Zoom,   MB3: UnZoom,   MB2: Pan"), grid->rowCount() + 1, 0, 1, 2);
}

void DisplayMenu::connectControls()
{
    const auto onChoice = QOverload<int>::of(&QComboBox::activated);
    connect(_displayBox, onChoice, this, &DisplayMenu::changeDisplay);
    connect(_directBox, onChoice, this, &DisplayMenu::changeDirection);
    connect(_scalarBox, onChoice, this, &DisplayMenu::changeScalar);
    connect(_polarityBox, onChoice, this, &DisplayMenu::changePolarity);
    connect(_conventionBox, onChoice, this, &DisplayMenu::changePolarity);
    connect(_conventionBox->lineEdit(), &QLineEdit::editingFinished, this, &DisplayMenu::changePolarity);

    const struct {
        NumberEdit* edit;
        void (DisplayMenu::*slot)();
    } edits[] = {{_clipEdit, &DisplayMenu::changeClip},
                 {_moveEdit, &DisplayMenu::changeMoveUp},
                 {_tscaleEdit, &DisplayMenu::changeTraceSpacing},
                 {_sscaleEdit, &DisplayMenu::changeSampleSpacing},
                 {_gainEdit, &DisplayMenu::changeGain},
                 {_lminEdit, &DisplayMenu::changeRange},
                 {_lmaxEdit, &DisplayMenu::changeRange},
                 {_rmsEdit, &DisplayMenu::changeRMS},
                 {_biasEdit, &DisplayMenu::changeBias}};
    for (const auto& row : edits) connect(row.edit, &NumberEdit::numberEdited, this, row.slot);

    connect(_tscaleSlider, &QSlider::valueChanged, this, &DisplayMenu::changeSliderTrace);
    connect(_sscaleSlider, &QSlider::valueChanged, this, &DisplayMenu::changeSliderSample);
    connect(_fitGainButton, &QPushButton::clicked, this, &DisplayMenu::fitShownGain);
    connect(_gainSlider, &QSlider::valueChanged, this, &DisplayMenu::changeSliderGain);

    const struct {
        QCheckBox* box;
        void (DisplayMenu::*slot)(int);
    } boxes[] = {{_tscaleBox, &DisplayMenu::changeAutoTrace}, {_sscaleBox, &DisplayMenu::changeAutoSample},
                 {_lautoBox, &DisplayMenu::changeAutoRange},  {_biasBox, &DisplayMenu::changeApplyBias},
                 {_aliasBox, &DisplayMenu::changeAlias},      {_overlayBox, &DisplayMenu::changeOverlay}};
    for (const auto& row : boxes) connect(row.box, &QCheckBox::stateChanged, this, row.slot);
}

SeismicPlot* DisplayMenu::plotOf(SeismicDisplay* display) const
{
    return _isOverlay ? display->overlayPlot() : display->seismicPlot();
}

/// The plot whose parameters are shown; null without a display.
SeismicPlot* DisplayMenu::shownPlot() const
{
    SeismicDisplay* display = _selection.display();
    if (!display) return nullptr;
    return _isOverlay && display->overlayPlot() ? display->overlayPlot() : display->seismicPlot();
}

/// Changes the plot, or the overlay, of each display chosen, and repaints it.
void DisplayMenu::applyToPlots(const std::function<void(SeismicPlot*)>& change)
{
    if (_doUpdate) return;
    for (SeismicDisplay* display : _selection.mainlist()) {
        if (SeismicPlot* plot = plotOf(display)) change(plot);
        display->rebuildPlot();
    }
}

/// Its plots: that of the data, and that of the overlay if there is one.
static QList<SeismicPlot*> plotsOf(SeismicDisplay* display)
{
    QList<SeismicPlot*> plots = {display->seismicPlot()};
    if (display->overlayPlot()) plots += display->overlayPlot();
    return plots;
}

/// The same for both plots of each display.
void DisplayMenu::applyToBoth(const std::function<void(SeismicPlot*)>& change)
{
    if (_doUpdate) return;
    for (SeismicDisplay* display : _selection.mainlist()) {
        for (SeismicPlot* plot : plotsOf(display)) change(plot);
        display->rebuildPlot();
    }
}

void DisplayMenu::setDisplay(int id)
{
    _selection.setDisplay(id);
    if (_isOverlay && !(_selection.display() && _selection.display()->overlayPlot())) _overlayBox->setChecked(false);
    updateDisplay();
    update();
}

void DisplayMenu::update()
{
    const SeismicPlot* plot = shownPlot();
    if (!plot) return;
    const QScopedValueRollback<bool> showing(_doUpdate, true);
    if (plot->isAutoTraceSpacing()) {
        _tscaleSlider->setValue(int(std::clamp(10.0 * plot->traceSpacing(), 0.0, 1e6)));
        _tscaleEdit->setNumber(plot->traceSpacing(), 'f', 2);
    }
    if (plot->isAutoSampleSpacing()) {
        const double ips = shownIPS();
        _sscaleSlider->setValue(int(std::clamp(10.0 * ips, 0.0, 1e6)));
        _sscaleEdit->setNumber(ips, 'f', 3);
    }
    if (plot->isAutoGain()) showRange(plot);
    _rmsLabel->setText(QString::number(double(plot->rms()), 'g', 6));
    _rmsEdit->setBlank();
}

/// Inches per second of the sample spacing in force; 0 where there is none.
double DisplayMenu::shownIPS() const
{
    const double perInch = _selection.display()->sampleRate() / 1000.0 * shownPlot()->sampleSpacing();
    return perInch > 0.0 ? 1.0 / perInch : 0.0;
}

void DisplayMenu::updateDisplay()
{
    const SeismicPlot* plot = shownPlot();
    if (!plot) return;
    const QScopedValueRollback<bool> showing(_doUpdate, true);
    _controls.show(plot->parm());
    if (const parmmenu* menu = _selection.display()->menu()) _moveEdit->setNumber(menu->moveup);
    showPolarity(_selection.display()->polarity());
    showSpacing();
}

void DisplayMenu::showSpacing()
{
    const SeismicPlot* plot = shownPlot();
    _tscaleBox->setChecked(plot->isAutoTraceSpacing());
    _tscaleSlider->setValue(int(std::clamp(10.0 * plot->traceSpacing(), 0.0, 1e6)));
    _tscaleEdit->setNumber(plot->traceSpacing());
    _sscaleBox->setChecked(plot->isAutoSampleSpacing());
    _sscaleSlider->setValue(int(std::clamp(10.0 * shownIPS(), 0.0, 1e6)));
    _sscaleEdit->setNumber(shownIPS());
    enableSpacing();
}

void DisplayMenu::enableSpacing()
{
    _tscaleSlider->setEnabled(!_tscaleBox->isChecked());
    _tscaleEdit->setEnabled(!_tscaleBox->isChecked());
    _sscaleSlider->setEnabled(!_sscaleBox->isChecked());
    _sscaleEdit->setEnabled(!_sscaleBox->isChecked());
}

void DisplayMenu::showRange(const SeismicPlot* plot)
{
    _lminEdit->setNumber(plot->rangeMin());
    _lmaxEdit->setNumber(plot->rangeMax());
}

void DisplayMenu::updateGain()
{
    const SeismicPlot* plot = shownPlot();
    if (!plot || !plot->isAutoGain()) return;
    const QScopedValueRollback<bool> showing(_doUpdate, true);
    _scalarBox->setCurrentIndex(int(plot->normalization()));
    _lautoBox->setChecked(true);
    showRange(plot);
    _rmsLabel->setText(QString::number(double(plot->rms()), 'g', 6));
}

void DisplayMenu::setDisplayType(DisplayType type)
{
    _displayBox->setCurrentIndex(int(type));
    changeDisplay(int(type));
}

void DisplayMenu::changeDisplay(int index)
{
    if (_doUpdate || !shownPlot()) return;
    const WaitCursor wait;
    const auto type = DisplayType(index);
    for (SeismicDisplay* display : _selection.mainlist())
        if (SeismicPlot* plot = plotOf(display)) plot->setDisplayType(type);
    const SeismicPlot* first = shownPlot();
    showRange(first);
    if (type == Velocity)
        updateGain();
    else
        _lautoBox->setChecked(type < ColorB);  // acts on all plots, so that the type is set once more below
    const bool isAmplitude = type == ColorB || type == ColorWiggle;
    applyToPlots([=](SeismicPlot* plot) {
        plot->setDisplayType(type);
        // Displays that share a color bar share its range; only the first has found the bar without colors.
        if (isAmplitude && plot != first && plot->colorBar() == first->colorBar())
            plot->setRange(first->rangeMin(), first->rangeMax());
    });
    showRange(first);
}

void DisplayMenu::changeDirection(int index)
{
    if (_doUpdate) return;
    for (SeismicDisplay* display : _selection.mainlist()) {
        display->setPlotDirection(PlotDirection(index));
        display->rebuildPlot();
    }
}

void DisplayMenu::changeScalar(int index)
{
    const WaitCursor wait;
    applyToPlots([=](SeismicPlot* plot) { plot->setNormalization(Normalize(index)); });
    updateGain();
    if (!_doUpdate && shownPlot()) showRange(shownPlot());
}

void DisplayMenu::changeClip()
{
    applyToBoth([this](SeismicPlot* plot) { plot->setClip(float(_clipEdit->number())); });
}

void DisplayMenu::changeMoveUp()
{
    for (SeismicDisplay* display : _selection.mainlist())
        if (display->menu()) display->menu()->moveup = int(_moveEdit->number());
}

void DisplayMenu::rebuildAll(bool resetOthers)
{
    for (SeismicDisplay* display : _selection.allDisplays()) {
        display->rebuildDisplay(resetOthers);
        display->setZoomBase();
    }
}

void DisplayMenu::setTraceSpacing(double tpi)
{
    for (SeismicDisplay* display : _selection.allDisplays())
        for (SeismicPlot* plot : plotsOf(display)) plot->setTraceSpacing(float(tpi));
}

void DisplayMenu::changeSliderTrace(int value)
{
    if (_doUpdate) return;
    const double tpi = value / 10.0;
    _tscaleEdit->setNumber(tpi);
    setTraceSpacing(tpi);
    rebuildAll(true);
}

void DisplayMenu::changeTraceSpacing()
{
    const double tpi = _tscaleEdit->number();
    const QSignalBlocker quiet(_tscaleSlider);
    _tscaleSlider->setValue(int(std::min(tpi * 10.0, 1e6)));
    setTraceSpacing(tpi);
    rebuildAll(true);
}

void DisplayMenu::changeAutoTrace(int state)
{
    enableSpacing();
    if (_doUpdate) return;
    for (SeismicDisplay* display : _selection.allDisplays())
        for (SeismicPlot* plot : plotsOf(display)) plot->setAutoTraceSpacing(state != 0);
    if (!state) setTraceSpacing(_tscaleEdit->number());
    rebuildAll(false);
    update();
}

/// Gives the plots samples per inch, each by its own sample rate.
void DisplayMenu::setSampleSpacing(double ips)
{
    for (SeismicDisplay* display : _selection.allDisplays())
        for (SeismicPlot* plot : plotsOf(display))
            plot->setSampleSpacing(float((1.0 / ips) / (display->sampleRate() / 1000.0)));
}

void DisplayMenu::changeSliderSample(int value)
{
    if (_doUpdate) return;
    const double ips = value / 10.0;
    _sscaleEdit->setNumber(ips);
    setSampleSpacing(ips);
    rebuildAll(true);
}

void DisplayMenu::changeSampleSpacing()
{
    const double ips = _sscaleEdit->number();
    const QSignalBlocker quiet(_sscaleSlider);
    _sscaleSlider->setValue(int(std::min(ips * 10.0, 1e6)));
    setSampleSpacing(ips);
    rebuildAll(true);
}

void DisplayMenu::changeAutoSample(int state)
{
    enableSpacing();
    if (_doUpdate) return;
    for (SeismicDisplay* display : _selection.allDisplays())
        for (SeismicPlot* plot : plotsOf(display)) plot->setAutoSampleSpacing(state != 0);
    if (!state && _sscaleEdit->number() > 0.0) setSampleSpacing(_sscaleEdit->number());
    rebuildAll(false);
    update();
}

void DisplayMenu::setGain(double db)
{
    applyToPlots([=](SeismicPlot* plot) { plot->setGain(float(db)); });
}

void DisplayMenu::changeSliderGain(int value)
{
    if (_doUpdate) return;
    _gainEdit->setNumber(value);
    setGain(value);
}

void DisplayMenu::changeGain()
{
    const QSignalBlocker quiet(_gainSlider);
    _gainSlider->setValue(int(_gainEdit->number()));
    setGain(_gainEdit->number());
}

void DisplayMenu::fitShownGain()
{
    const SeismicPlot* plot = shownPlot();
    if (!plot) return;
    if (isColorType(plot->displayType())) return fitShownRange();
    std::vector<float> offsets;
    double db = 0.0;
    if (!fitGain(plot->rasterParm(&offsets), &db)) return;
    db = std::clamp(db, -200.0, 200.0);
    _gainEdit->setNumber(db, 'f', 2);
    const QSignalBlocker quiet(_gainSlider);
    _gainSlider->setValue(int(db));
    setGain(db - 1e-4);  // not as rounded as the field: above the gain that fits more would be clipped than is to be
}

/// Colours show amplitudes by their range; a gain would only whiten them.
void DisplayMenu::fitShownRange()
{
    const SeismicPlot* shown = shownPlot();
    std::vector<float> offsets;
    float rangeMin = 0.0f, rangeMax = 0.0f;
    if (!fitRange(shown->rasterParm(&offsets), &rangeMin, &rangeMax)) return;
    applyToPlots([=](SeismicPlot* plot) {
        plot->setAutoGain(false);  // the next ensemble keeps the range, as it would a typed one
        plot->setRange(rangeMin, rangeMax);
    });
    const QScopedValueRollback<bool> showing(_doUpdate, true);
    _lautoBox->setChecked(false);
    showRange(shown);
}

void DisplayMenu::changeRange()
{
    applyToPlots([this](SeismicPlot* plot) {
        plot->setAutoGain(_lautoBox->isChecked());  // the next ensemble must not take a typed range away
        plot->setRange(float(_lminEdit->number()), float(_lmaxEdit->number()));
    });
}

void DisplayMenu::changeAutoRange(int state)
{
    if (_doUpdate) return;
    SeismicPlot* first = shownPlot();
    applyToPlots([=](SeismicPlot* plot) {
        plot->setAutoGain(state != 0);
        if (state && plot == first) plot->computeNormalizer();
    });
    if (!state || !first) return;
    showRange(first);
    _rmsLabel->setText(QString::number(double(first->rms()), 'g', 6));
}

void DisplayMenu::changeRMS()
{
    const auto rms = float(_rmsEdit->number());
    applyToPlots([=](SeismicPlot* plot) {
        plot->setRMS(rms);
        if (plot->isAutoGain() && plot->normalization() != Normalize::None && !isColorType(plot->displayType()))
            plot->setRange(-plot->peak(), plot->peak());
    });
    const SeismicPlot* plot = shownPlot();
    if (!plot) return;
    _rmsLabel->setText(QString::number(double(plot->rms()), 'g', 6));
    showRange(plot);
}

void DisplayMenu::changeBias()
{
    applyToPlots([this](SeismicPlot* plot) { plot->setBias(float(_biasEdit->number())); });
}

void DisplayMenu::changeApplyBias(int state)
{
    applyToPlots([=](SeismicPlot* plot) { plot->setApplyBias(state != 0); });
}

void DisplayMenu::changeAlias(int state)
{
    applyToBoth([=](SeismicPlot* plot) { plot->setAntiAlias(state != 0); });
}

void DisplayMenu::changeOverlay(int state)
{
    const SeismicDisplay* display = _selection.display();
    _isOverlay = state && display && display->overlayPlot();
    if (state && !_isOverlay) {
        const QSignalBlocker quiet(_overlayBox);
        _overlayBox->setChecked(false);
        return;
    }
    updateDisplay();
    update();
}
