#include "display/menus/colorbardialog.h"

#include "display/colors/colorbarframe.h"
#include "display/menus/colorstoptable.h"
#include "display/seismicdisplay.h"
#include "display/seismicplot.h"
#include "host/home.h"
#include "widgets/namedcontrol.h"
#include "widgets/numberedit.h"
#include "widgets/wholefile.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QInputDialog>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QScopedValueRollback>

static QString colorFolder()
{
    return QString(GetHome()) + "/port/misc/";
}

ColorBarDialog::ColorBarDialog(const DisplayList* displaylist, const DisplayList* otherlist, QWidget* parent)
    : QWidget(parent), _selection(displaylist, otherlist)
{
    setObjectName("ColorBarDialog");
    auto* grid = new QGridLayout(this);
    makeTable(grid);
    makeProperties(grid);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    setOverlayMode(false);
    setDisplay(0);
    loadColorFiles();
}

void ColorBarDialog::makeTable(QGridLayout* grid)
{
    _colorTable = makeControl<ColorStopTable>(
        "colorTable", tr("Color stops from high to low values. Double click a color to choose another; type a "
                         "percentage from 0 to 100 into a blank row to add a stop, clear it to drop one"));
    grid->addWidget(_colorTable, 0, 0);
    _resetButton = makeButton("resetButton", "Reset", tr("Back to the colors from before the menu was opened"));
    _updateButton = makeButton("updateButton", "Update", tr("Paint with the colors of the table"));
    _saveButton = makeButton("saveButton", "Save", tr("Paint with the colors of the table and save them to a file"));
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {_resetButton, _updateButton, _saveButton}) buttons->addWidget(button);
    grid->addLayout(buttons, 1, 0);
    connect(_resetButton, &QPushButton::clicked, this, &ColorBarDialog::resetColors);
    connect(_updateButton, &QPushButton::clicked, this, &ColorBarDialog::updateColors);
    connect(_saveButton, &QPushButton::clicked, this, &ColorBarDialog::saveColorMap);
}

void ColorBarDialog::makeProperties(QGridLayout* grid)
{
    _numColorsEdit = makeControl<NumberEdit>(
        "numColorsEdit", tr("Steps that the range of amplitudes is divided into, 1 to 65536"), 1.0, 65536.0);
    _numColorsEdit->setWhole(true);
    _scaledBox = makeControl<QCheckBox>(
        "scaledBox", tr("Mix colors between the stops; else each stop's color reaches up to the next"),
        "Scaled Colors");
    _drawScaleBox = makeControl<QCheckBox>("drawScaleBox", tr("Amplitudes beside the color bar"), "Draw Scale Values");
    _backgroundButton =
        makeButton("backgroundButton", "Background Color", tr("Color of the picture where there are no traces"));
    _fileList = makeControl<QListWidget>("fileList", tr("Color files of your folder; a double click loads one"));
    _fileList->setIconSize(QSize(4, 1) * fontMetrics().height());
    _loadButton = makeButton("loadButton", "Load", tr("Paint with the colors of the chosen file"));
    _overlayBox = makeControl<QCheckBox>("overlayBox",
                                         tr("The controls act on the color bar of the overlay data, if there are any"),
                                         "Change Overlay Colorbar");

    auto* column = new QVBoxLayout;
    auto* count = new QHBoxLayout;
    count->addWidget(new QLabel("Number of colors:"));
    count->addWidget(_numColorsEdit);
    count->addStretch();
    column->addLayout(count);
    for (QWidget* widget : QList<QWidget*>{_scaledBox, _drawScaleBox, _backgroundButton})
        column->addWidget(widget, 0, Qt::AlignLeft);
    auto* files = new QGroupBox("Color Files");
    auto* filesLayout = new QVBoxLayout(files);
    filesLayout->addWidget(_fileList);
    filesLayout->addWidget(_loadButton, 0, Qt::AlignLeft);
    column->addWidget(files, 1);
    grid->addLayout(column, 0, 1);
    grid->addWidget(_overlayBox, 1, 1);

    connect(_numColorsEdit, &NumberEdit::numberEdited, this, &ColorBarDialog::changeNumColors);
    connect(_scaledBox, &QCheckBox::stateChanged, this, &ColorBarDialog::changeScaled);
    connect(_drawScaleBox, &QCheckBox::stateChanged, this, &ColorBarDialog::changeDrawScale);
    connect(_backgroundButton, &QPushButton::clicked, this, &ColorBarDialog::changeBackground);
    connect(_loadButton, &QPushButton::clicked, this, &ColorBarDialog::loadFile);
    connect(_fileList, &QListWidget::currentItemChanged, _loadButton,
            [this](QListWidgetItem* item) { _loadButton->setEnabled(item != nullptr); });
    connect(_fileList, &QListWidget::itemDoubleClicked, this, &ColorBarDialog::loadFile);
    connect(_overlayBox, &QCheckBox::stateChanged, this, &ColorBarDialog::changeOverlay);
}

/// The bar of a display's plot, or of its overlay; null where there is none.
static ColorBarFrame* barOf(const SeismicDisplay* display, bool ofOverlay)
{
    const SeismicPlot* plot = ofOverlay ? display->overlayPlot() : display->seismicPlot();
    return plot ? plot->colorBar() : nullptr;
}

QList<ColorBarFrame*> ColorBarDialog::bars() const
{
    QList<ColorBarFrame*> found;
    for (const SeismicDisplay* display : _selection.mainlist()) {
        ColorBarFrame* bar = barOf(display, _overlayBox->isChecked());
        if (bar && !found.contains(bar)) found.append(bar);
    }
    return found;
}

ColorBarFrame* ColorBarDialog::shownBar() const
{
    return bars().value(0, nullptr);
}

void ColorBarDialog::applyToBars(const std::function<void(ColorBarFrame*)>& change)
{
    if (_doUpdate) return;
    const QList<ColorBarFrame*> changed = bars();
    for (ColorBarFrame* bar : changed) change(bar);
    for (SeismicDisplay* display : _selection.allDisplays())
        if (changed.contains(barOf(display, false)) || changed.contains(barOf(display, true))) display->rebuildPlot();
    showBar();
}

void ColorBarDialog::setDisplay(int id)
{
    _selection.setDisplay(id);
    takeBar();
}

void ColorBarDialog::setOverlayMode(bool on)
{
    _overlayBox->setEnabled(on);
    if (!on) _overlayBox->setChecked(false);
}

void ColorBarDialog::changeOverlay(int)
{
    takeBar();
}

/// Shows another bar, and keeps its colors for "Reset".
void ColorBarDialog::takeBar()
{
    const ColorBarFrame* bar = shownBar();
    setEnabled(bar != nullptr);
    if (!bar) return;
    _former = {bar->colorMap(), bar->numColors(), bar->colorMode(), bar->colorFile()};
    showBar();
    showTable();
}

void ColorBarDialog::showBar()
{
    const ColorBarFrame* bar = shownBar();
    if (!bar) return;
    const QScopedValueRollback<bool> showing(_doUpdate, true);
    _numColorsEdit->setNumber(bar->numColors());
    _scaledBox->setChecked(bar->colorMode() != 0);
    _drawScaleBox->setChecked(bar->isScaleDrawn());
    QPixmap swatch(fontMetrics().height(), fontMetrics().height());
    swatch.fill(bar->backGround());
    _backgroundButton->setIcon(swatch);
}

/// Edits of the table that aren't in use yet are lost by this.
void ColorBarDialog::showTable()
{
    if (const ColorBarFrame* bar = shownBar()) _colorTable->setColorMap(bar->colorMap(), bar->numColors());
}

void ColorBarDialog::changeNumColors()
{
    const int n = int(_numColorsEdit->number());
    applyToBars([=](ColorBarFrame* bar) { bar->setNumColors(n); });
    _colorTable->setRows(n);
}

void ColorBarDialog::changeScaled(int state)
{
    applyToBars([=](ColorBarFrame* bar) { bar->setColorMode(state ? 1 : 0); });
}

void ColorBarDialog::changeDrawScale(int state)
{
    applyToBars([=](ColorBarFrame* bar) { bar->drawScale(state != 0); });
}

void ColorBarDialog::changeBackground()
{
    const ColorBarFrame* bar = shownBar();
    if (!bar) return;
    const QColor chosen =
        QColorDialog::getColor(bar->backGround(), this, tr("Background Color"), QColorDialog::DontUseNativeDialog);
    if (chosen.isValid()) applyToBars([=](ColorBarFrame* b) { b->setBackGround(chosen); });
}

static void setColors(ColorBarFrame* bar, const ColorFile& colors)
{
    bar->setNumColors(colors.numColors);
    bar->setColorMode(colors.colorMode);
    bar->setColorMap(colorMapOf(colors, bar->colorMap()));
}

ColorFile ColorBarDialog::tableColors() const
{
    return {int(_numColorsEdit->number()), _scaledBox->isChecked() ? 1 : 0, _colorTable->stops()};
}

void ColorBarDialog::updateColors()
{
    const ColorFile colors = tableColors();
    applyToBars([&](ColorBarFrame* bar) { setColors(bar, colors); });
    showTable();
}

void ColorBarDialog::resetColors()
{
    applyToBars([this](ColorBarFrame* bar) {
        bar->setNumColors(_former.numColors);
        bar->setColorMode(_former.colorMode);
        bar->setColorMap(_former.map);
        bar->setColorFile(_former.file);
    });
    showTable();
}

/// A small picture of a file's colors, low values left; blank for a broken one.
static QIcon fileIcon(const QString& name, const QSize& size)
{
    QPixmap strip(size);
    strip.fill(Qt::transparent);
    QFile file(name);
    ColorFile colors;
    std::string error;
    if (!file.open(QIODevice::ReadOnly)) return strip;
    const std::string text = file.readAll().toStdString();
    if (!readColorFile(text, name.toStdString(), &colors, &error)) return strip;
    ColorMap map = colorMapOf(colors, ColorMap::seismicColor());
    map.setMode(colors.colorMode ? ColorMap::ScaledColors : ColorMap::FixedColors);
    QPainter painter(&strip);
    for (int x = 0; x < size.width(); ++x)
        painter.fillRect(x, 0, 1, size.height(), QColor::fromRgba(map.rgb(0.0, size.width() - 1.0, x)));
    return strip;
}

void ColorBarDialog::loadColorFiles()
{
    const QString chosen = _fileList->currentItem() ? _fileList->currentItem()->text() : QString();
    _fileList->clear();
    _loadButton->setEnabled(false);
    for (const QString& name : QDir(colorFolder()).entryList({"*.col"}, QDir::Files, QDir::Name | QDir::IgnoreCase)) {
        auto* item = new QListWidgetItem(fileIcon(colorFolder() + name, _fileList->iconSize()), name, _fileList);
        if (name == chosen) _fileList->setCurrentItem(item);
    }
}

void ColorBarDialog::loadFile()
{
    if (!_fileList->currentItem()) return;
    const QString name = colorFolder() + _fileList->currentItem()->text();
    QString error;
    bool isLoaded = true;
    applyToBars([&](ColorBarFrame* bar) {
        const QString former = bar->colorFile();
        isLoaded = isLoaded && bar->loadColorMapFile(name, &error);
        if (!isLoaded) bar->setColorFile(former);
    });
    if (isLoaded)
        showTable();
    else
        QMessageBox::critical(this, tr("Color File Error"), error);
}

/// The path of a color file from what the user typed; empty if it isn't a plain name.
static QString colorFilePath(const QString& typed)
{
    QString name = typed.trimmed();
    if (name.endsWith(".col")) name.chop(4);
    if (name.isEmpty() || name.startsWith('.') || name.contains('/')) return QString();
    return colorFolder() + name + ".col";
}

void ColorBarDialog::saveColorMap()
{
    bool ok = false;
    const QString typed = QInputDialog::getText(
        this, "Save Colorbar to File ", tr("File name in %1").arg(colorFolder()), QLineEdit::Normal, QString(), &ok);
    if (!ok) return;
    const QString name = colorFilePath(typed);
    if (name.isEmpty()) {
        QMessageBox::warning(this, tr("Color File Error"), tr("\"%1\" is not a file name.").arg(typed));
        return;
    }
    if (QFile::exists(name) &&
        QMessageBox::question(this, "Save Colorbar to File ", tr("Replace %1?").arg(name)) != QMessageBox::Yes)
        return;
    ColorFile colors = tableColors();
    colors.numColors = _colorTable->rowCount();
    QDir().mkpath(colorFolder());
    QString error;
    if (!writeWhole(name, QByteArray::fromStdString(colorFileText(colors)), &error)) {
        QMessageBox::critical(this, tr("Color File Error"), error);
        return;
    }
    applyToBars([&](ColorBarFrame* bar) {
        setColors(bar, colors);
        bar->setColorFile(name);
    });
    showTable();
    loadColorFiles();
}
