#include "display/menus/scalemenu.h"

#include "display/seismicdisplay.h"
#include "display/seismicplot.h"
#include "tracedata/parmmenu.h"
#include "tracedata/seismicdata.h"
#include "tracedata/seismicheader.h"
#include "widgets/namedcontrol.h"
#include "widgets/numberedit.h"
#include "widgets/waitcursor.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QSlider>
#include <QVBoxLayout>
#include <qwt_plot_grid.h>

#include <cmath>

ScaleMenu::ScaleMenu(const DisplayList* displaylist, const DisplayList* otherlist, QWidget* parent)
    : QWidget(parent), _selection(displaylist, otherlist)
{
    setObjectName("ScaleMenu");
    setWindowTitle("Plot Attributes");
    auto* column = new QVBoxLayout(this);
    makeGrids(column);
    makeHeaders(column);
    makeConditioners(column);
    makeOverlay(column);
    column->addStretch();
    connectControls();
    setDisplay(0);
}

static NumberEdit* makeEdit(const char* name, const QString& tip, double least, double largest, bool isWhole)
{
    auto* edit = makeControl<NumberEdit>(name, tip, least, largest);
    edit->setWhole(isWhole);
    return edit;
}

static void addWidgets(QGridLayout* grid, const QList<QWidget*>& widgets)
{
    const int row = grid->rowCount();
    for (int i = 0; i < widgets.size(); ++i) grid->addWidget(widgets[i], row, i);
}

static QGridLayout* makeGroup(QVBoxLayout* column, const QString& title)
{
    auto* group = new QGroupBox(title);
    column->addWidget(group);
    auto* grid = new QGridLayout(group);
    grid->setContentsMargins(9, 4, 9, 4);
    return grid;
}

void ScaleMenu::makeGrids(QVBoxLayout* column)
{
    _gridTBox = makeControl<QCheckBox>("gridTBox", tr("Lines at the steps of the time axis"), "Major Grid:");
    _gridTMajorEdit = makeEdit("gridTMajorEdit", tr("Step of the time axis, in ms"), 1e-3, 1e6, false);
    _gridTMinorBox =
        makeControl<QCheckBox>("gridTMinorBox", tr("Lines between the steps of the time axis"), "Minor Grid:");
    _gridTMinorEdit =
        makeEdit("gridTMinorEdit",
                 tr("Wanted step between minor lines, in ms; the plot itself chooses how to divide the major step"),
                 1e-3, 1e6, false);
    _gridSBox = makeControl<QCheckBox>("gridSBox", tr("Lines at the steps of the trace axis"), "Major Grid:");
    _gridSMajorEdit = makeEdit("gridSMajorEdit", tr("Step of the trace axis, in traces"), 1.0, 1e6, false);
    _gridSMinorBox =
        makeControl<QCheckBox>("gridSMinorBox", tr("Lines between the steps of the trace axis"), "Minor Grid:");
    _gridSMinorEdit = makeEdit("gridSMinorEdit",
                               tr("Wanted step between minor lines, in traces; the plot itself chooses how "
                                  "to divide the major step"),
                               1e-3, 1e6, false);
    _gridTMinorEdit->setNumber(100.0);
    _gridSMinorEdit->setNumber(1.0);
    QGridLayout* grid = makeGroup(column, "Grid");
    addWidgets(grid, {new QLabel("Time: "), _gridTBox, _gridTMajorEdit, new QLabel("ms"), _gridTMinorBox,
                      _gridTMinorEdit, new QLabel("ms")});
    addWidgets(grid, {new QLabel("Trace: "), _gridSBox, _gridSMajorEdit, new QLabel("trc"), _gridSMinorBox,
                      _gridSMinorEdit, new QLabel("trc")});
    grid->setColumnStretch(7, 1);
}

/// A combo of header words, which are many and long.
static QComboBox* makeHeaderBox(const char* name, const QString& tip)
{
    auto* box = makeControl<QComboBox>(name, tip);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(28);
    box->addItem("None");
    return box;
}

void ScaleMenu::makeHeaders(QVBoxLayout* column)
{
    const QString later = tr("The header graph is not built yet");
    _header1Box = makeHeaderBox("header1Box", later);
    _header2Box = makeHeaderBox("header2Box", later);
    QGridLayout* grid = makeGroup(column, "Header Plot");
    addWidgets(grid, {new QLabel("Header to plot 1:"), _header1Box});
    addWidgets(grid, {new QLabel("Header to plot 2:"), _header2Box});
    grid->setColumnStretch(1, 1);
    grid->parentWidget()->setEnabled(false);
    grid->parentWidget()->setToolTip(later);

    _prilBox = makeHeaderBox("prilBox", tr("Header word in the title above the traces"));
    _seclBox = makeHeaderBox("seclBox", tr("Header word that labels the traces"));
    grid = makeGroup(column, "Primary/Secondary Label");
    addWidgets(grid, {new QLabel("Primary Header Label:"), _prilBox});
    addWidgets(grid, {new QLabel("Secondary Header Label:"), _seclBox});
    grid->setColumnStretch(1, 1);
}

void ScaleMenu::makeConditioners(QVBoxLayout* column)
{
    _agcBox = makeControl<QCheckBox>("agcBox", tr("Balance amplitudes along each trace"));
    _agcEdit = makeParmEdit("agcWindow", "agcEdit", tr("Length of the AGC window, in ms"));
    _agcEdit->setNumber(500.0);
    QGridLayout* grid = makeGroup(column, "Automatic Gain Control");
    addWidgets(grid, {new QLabel("Apply AGC:"), _agcBox, new QLabel("Window Length:"), _agcEdit, new QLabel("msec")});
    grid->setColumnStretch(5, 1);

    _phseBox = makeControl<QCheckBox>("phseBox", tr("Rotate the phase of all frequencies"), "Phase Rotation");
    _phseSlider = makeControl<QSlider>("phseSlider", tr("Angle, in degrees"), Qt::Horizontal);
    const ParmRule& angle = plotParmField("phaseAngle").rule;
    _phseSlider->setRange(int(angle.least), int(angle.most));
    _phseEdit = makeParmEdit("phaseAngle", "phseEdit", tr("Angle, in degrees"));
    _phseEdit->setBlankValue(0.0);
    _phseEdit->setNumber(0.0);
    grid = makeGroup(column, "Phase Angle Rotation");
    addWidgets(grid, {_phseBox, new QLabel("Angle:"), _phseSlider, _phseEdit, new QLabel("degrees")});
    grid->setColumnStretch(2, 1);
    _agcEdit->setEnabled(false);
    _phseSlider->setEnabled(false);
    _phseEdit->setEnabled(false);
    _controls.add("agc", _agcBox);
    _controls.add("agcWindow", _agcEdit);
    _controls.add("phase", _phseBox);
    _controls.add("phaseAngle", _phseSlider);
    _controls.add("phaseAngle", _phseEdit);
}

void ScaleMenu::makeOverlay(QVBoxLayout* column)
{
    _opacBox =
        makeControl<QCheckBox>("opacBox", tr("Every second ensemble is laid over the one before it"), "Show Overlay");
    _opacSlider = makeControl<QSlider>("opacSlider", tr("Opacity of the overlay, in percent"), Qt::Horizontal);
    _opacSlider->setRange(1, 100);
    _opacEdit = makeEdit("opacEdit", tr("Opacity of the overlay, in percent, 1 to 100"), 1.0, 100.0, true);
    _opacLabel = makeControl<QLabel>("opacLabel", QString(), "percent");
    QGridLayout* grid = makeGroup(column, "Overlay Plot");
    addWidgets(grid, {_opacBox, new QLabel("Opacity:"), _opacSlider, _opacEdit, _opacLabel});
    grid->setColumnStretch(2, 1);
}

void ScaleMenu::connectControls()
{
    const struct {
        QCheckBox* box;
        void (ScaleMenu::*slot)(int);
    } boxes[] = {{_gridTBox, &ScaleMenu::changeApplyTGrid}, {_gridTMinorBox, &ScaleMenu::changeApplyMinorTGrid},
                 {_gridSBox, &ScaleMenu::changeApplySGrid}, {_gridSMinorBox, &ScaleMenu::changeApplyMinorSGrid},
                 {_agcBox, &ScaleMenu::changeApplyAGC},     {_phseBox, &ScaleMenu::changePhase},
                 {_opacBox, &ScaleMenu::changeOverlay}};
    for (const auto& row : boxes) connect(row.box, &QCheckBox::stateChanged, this, row.slot);
    const struct {
        NumberEdit* edit;
        void (ScaleMenu::*slot)();
    } edits[] = {{_gridTMajorEdit, &ScaleMenu::changeMajorTGrid},
                 {_gridTMinorEdit, &ScaleMenu::changeMinorTGrid},
                 {_gridSMajorEdit, &ScaleMenu::changeMajorSGrid},
                 {_gridSMinorEdit, &ScaleMenu::changeMinorSGrid},
                 {_agcEdit, &ScaleMenu::changeAGCWin},
                 {_phseEdit, &ScaleMenu::changePhaseValue},
                 {_opacEdit, &ScaleMenu::changeOverlayValue}};
    for (const auto& row : edits) connect(row.edit, &NumberEdit::numberEdited, this, row.slot);
    connect(_phseSlider, &QSlider::valueChanged, this, &ScaleMenu::changeSliderPhase);
    connect(_opacSlider, &QSlider::valueChanged, this, &ScaleMenu::changeSliderOverlay);
    connect(_prilBox, &QComboBox::textActivated, this, &ScaleMenu::changePriLabel);
    connect(_seclBox, &QComboBox::textActivated, this, &ScaleMenu::changeSecLabel);
}

void ScaleMenu::setDisplay(int id)
{
    _selection.setDisplay(id);
    showDisplay();
    update();
}

void ScaleMenu::showDisplay()
{
    const SeismicDisplay* display = _selection.display();
    if (!display) return;
    const QScopedValueRollback<bool> showing(_doUpdate, true);
    const QwtPlotGrid* grid = display->grid();
    _gridTBox->setChecked(grid->yEnabled());
    _gridTMinorBox->setChecked(grid->yMinEnabled());
    _gridTMinorBox->setEnabled(grid->yEnabled());
    _gridTMajorEdit->setNumber(display->timeIncrement());
    _gridSBox->setChecked(grid->xEnabled());
    _gridSMinorBox->setChecked(grid->xMinEnabled());
    _gridSMinorBox->setEnabled(grid->xEnabled());
    _gridSMajorEdit->setNumber(display->traceIncrement());
    _controls.show(display->seismicPlot()->parm());
    _agcEdit->setEnabled(_agcBox->isChecked());
    _phseSlider->setEnabled(_phseBox->isChecked());
    _phseEdit->setEnabled(_phseBox->isChecked());
    _opacBox->setChecked(display->menu() && display->menu()->ioverlay != 0);
    const SeismicPlot* overlay = display->overlayPlot();
    const int percent = int(std::lround((overlay ? overlay->opacity() : display->seismicPlot()->opacity()) * 100.0f));
    _opacSlider->setValue(percent);
    _opacEdit->setNumber(percent);
    enableOpacity();
}

void ScaleMenu::update()
{
    const SeismicDisplay* display = _selection.display();
    if (!display || display->traceCount() == 0) return;
    const QStringList former = _hvlist;
    buildHeaderList();
    for (QComboBox* box : {_prilBox, _seclBox}) {
        if (_hvlist == former && box->count() > 1) continue;
        box->clear();
        box->addItem("None");
        box->addItems(_hvlist);
    }
    showLabel(_prilBox, display->headerKeys().pri);
    showLabel(_seclBox, display->headerKeys().sec);
    _gridSMajorEdit->setNumber(display->traceIncrement());
}

/// Shows the row of a header word.
void ScaleMenu::showLabel(QComboBox* box, WordFrom0 word)
{
    box->setCurrentIndex(_hindex.indexOf(word) + 1);  // a word that isn't listed shows as "None"
}

void ScaleMenu::buildHeaderList()
{
    _hlist.clear();
    _hvlist.clear();
    _hindex.clear();
    const SeismicDisplay* display = _selection.display();
    const SeismicData* data = display->seismicData();
    const HeaderWords& words = data->getTraceHeader(0)->headerWords();
    for (int i = 0; i < data->numHeaderWords(); ++i) {
        const QString name = words.name(WordFrom0(i));
        if (name.trimmed().isEmpty() || name == "None") continue;
        const QString cut = name.left(8).leftJustified(8);
        if (_hlist.contains(cut)) continue;  // the second word of a long value
        _hlist.append(cut);
        _hvlist.append(cut + " " + words.description(name).trimmed());
        _hindex.append(WordFrom0(i));
    }
}

/// The header word of a row; none for "None".
WordFrom0 ScaleMenu::headerOf(const QString& text) const
{
    const int row = text == "None" ? -1 : _hlist.indexOf(text.left(8));
    return row < 0 ? WordFrom0() : _hindex[row];
}

void ScaleMenu::applyToGrids(const std::function<void(QwtPlotGrid*)>& change)
{
    if (_doUpdate) return;
    for (SeismicDisplay* display : _selection.mainlist()) {
        change(display->grid());
        display->rePlot();
    }
}

void ScaleMenu::changeApplyTGrid(int state)
{
    if (!state) _gridTMinorBox->setChecked(false);
    _gridTMinorBox->setEnabled(state != 0);
    applyToGrids([=](QwtPlotGrid* grid) { grid->enableY(state != 0); });
}

void ScaleMenu::changeApplyMinorTGrid(int state)
{
    applyToGrids([=](QwtPlotGrid* grid) { grid->enableYMin(state != 0); });
}

void ScaleMenu::changeApplySGrid(int state)
{
    if (!state) _gridSMinorBox->setChecked(false);
    _gridSMinorBox->setEnabled(state != 0);
    applyToGrids([=](QwtPlotGrid* grid) { grid->enableX(state != 0); });
}

void ScaleMenu::changeApplyMinorSGrid(int state)
{
    applyToGrids([=](QwtPlotGrid* grid) { grid->enableXMin(state != 0); });
}

/// Changes the step of some axes; the part of the data that is in view stays there.
static void changeStep(SeismicDisplay* display, const std::function<void()>& change)
{
    const QRectF shown = display->visibleRect();
    change();
    display->setVisibleRect(shown);
    display->rePlot();
}

void ScaleMenu::changeMajorTGrid()
{
    const double step = _gridTMajorEdit->number();
    for (SeismicDisplay* display : _selection.mainDisplays())
        changeStep(display, [=] { display->typeTimeIncrement(float(step)); });
}

void ScaleMenu::changeMajorSGrid()
{
    const double step = _gridSMajorEdit->number();
    for (SeismicDisplay* display : _selection.mainlist())
        changeStep(display, [=] { display->typeTraceIncrement(float(step)); });
}

/// The minor division stays the plot's own.
void ScaleMenu::changeMinorTGrid()
{
    for (SeismicDisplay* display : _selection.mainlist()) display->rePlot();
}

void ScaleMenu::changeMinorSGrid()
{
    for (SeismicDisplay* display : _selection.mainlist()) display->rePlot();
}

void ScaleMenu::applyToLabels(const std::function<void(SeismicDisplay*)>& change)
{
    for (SeismicDisplay* display : _selection.mainlist()) {
        change(display);
        display->rebuildPlot();
    }
}

void ScaleMenu::changePriLabel(const QString& text)
{
    applyToLabels([word = headerOf(text)](SeismicDisplay* display) { display->setPriKey(word); });
}

void ScaleMenu::changeSecLabel(const QString& text)
{
    applyToLabels([word = headerOf(text)](SeismicDisplay* display) { display->setSecKey(word); });
}

/// Changes a conditioner of each plot, runs the chain, and repaints.
void ScaleMenu::condition(const std::function<void(SeismicPlot*)>& change)
{
    const WaitCursor wait;
    for (SeismicDisplay* display : _selection.mainlist()) {
        change(display->seismicPlot());
        display->seismicPlot()->computeNormalizer();
        display->rebuildPlot();
    }
    emit conditioningChanged();
}

void ScaleMenu::changeApplyAGC(int state)
{
    _agcEdit->setEnabled(state != 0);
    if (_doUpdate) return;
    const int window = int(_agcEdit->number());
    condition([=](SeismicPlot* plot) { plot->applyAGC(state != 0, window); });
    for (SeismicDisplay* display : _selection.mainlist()) {
        if (display->menu()) keepInMenu(display->seismicPlot()->parm(), display->menu());
    }
}

void ScaleMenu::changeAGCWin()
{
    changeApplyAGC(_agcBox->isChecked());
}

void ScaleMenu::setPhase(bool state, int angle)
{
    condition([=](SeismicPlot* plot) { plot->applyPhase(state, angle); });
}

void ScaleMenu::changePhase(int state)
{
    _phseSlider->setEnabled(state != 0);
    _phseEdit->setEnabled(state != 0);
    if (!_doUpdate) setPhase(state != 0, int(_phseEdit->number()));
}

void ScaleMenu::changeSliderPhase(int value)
{
    if (_doUpdate) return;
    _phseEdit->setNumber(value);
    setPhase(true, value);
}

void ScaleMenu::changePhaseValue()
{
    const int angle = int(_phseEdit->number());
    const QSignalBlocker quiet(_phseSlider);
    _phseSlider->setValue(angle);
    setPhase(true, angle);
}

void ScaleMenu::showOverlay(bool on)
{
    _opacBox->setChecked(on);
}

void ScaleMenu::setOverlayMode(bool on)
{
    if (on) setOpacity(int(_opacEdit->number()));
}

void ScaleMenu::enableOpacity()
{
    for (QWidget* widget : QList<QWidget*>{_opacSlider, _opacEdit, _opacLabel})
        widget->setEnabled(_opacBox->isChecked());
}

void ScaleMenu::changeOverlay(int state)
{
    enableOpacity();
    if (_doUpdate) return;
    const QList<SeismicDisplay*> displays = _selection.mainDisplays();
    if (!displays.isEmpty()) displays.first()->setOverlayMode(state != 0);
    emit overlayChanged(state != 0);
}

void ScaleMenu::setOpacity(int percent)
{
    for (SeismicDisplay* display : _selection.mainlist()) {
        if (!display->overlayPlot()) continue;
        display->overlayPlot()->setOpacity(float(percent / 100.0));
        display->rePlot();
    }
}

void ScaleMenu::changeSliderOverlay(int value)
{
    if (_doUpdate) return;
    _opacEdit->setNumber(value);
    setOpacity(value);
}

void ScaleMenu::changeOverlayValue()
{
    const int percent = int(_opacEdit->number());
    const QSignalBlocker quiet(_opacSlider);
    _opacSlider->setValue(percent);
    setOpacity(percent);
}
