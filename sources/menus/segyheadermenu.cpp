#include "sources/menus/segyheadermenu.h"

#include "host/signal/bytes.h"
#include "sources/menus/fixedfont.h"
#include "sources/menus/segyheadertext.h"
#include "sources/menus/segyvaryingview.h"
#include "sources/segyloader.h"

#include <QApplication>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

/// The views by _method; the last one is no view of a single header.
static const struct {
    const char* label;
    const char* tip;
    QString (*build)(const void* bytes, bool isBigEndian);  // of the bytes in the file
} views[] = {
    {"Standard", "The SEG-Y fields with their names", nullptr},
    {"Short", "Each 2 bytes as an integer, in the file's byte order and in the other", buildShortHeader},
    {"Integer", "Each 4 bytes as an integer, in the file's byte order and in the other", buildIntegerHeader},
    {"Float", "Each 4 bytes as IEEE and IBM floating point, in the file's byte order and in the other",
     buildFloatHeader},
    {"Ascii", "Each byte as a character", buildAsciiHeader},
    {"Varying", "The bytes of all headers, ranked by how they behave over the file", nullptr},
};
constexpr int varyingMethod = int(std::size(views)) - 1;

static QStringList headerWordNames(SegyLoader* loader)
{
    QStringList names;
    for (const QString& row : loader->segyHeader()->headerNames()) names += row.section("|", 0, 0);
    return names;
}

/// The byte order of the file, as it is being read.
static bool isBigEndian(const segyData2& data)
{
    return (data.parm().iswap != 0) == littleEndian();
}

/// Headers through a descriptor of their own, so that the next ensemble is read from where it was.
static bool readSample(SegyLoader* loader, SegyHeaderSample* sample, std::string* error)
{
    FileSource source;
    if (!source.open(QFile::encodeName(loader->currentFile()).toStdString(), error)) return false;
    const segyMapItem* items = loader->getMapArray();
    const int nTraces = loader->getTotalTraces();
    std::vector<int64_t> offsetOfRank(size_t(nTraces), -1);
    for (int i = 0; i < nTraces; ++i)
        if (items[i].itrace < uint32_t(nTraces)) offsetOfRank[items[i].itrace] = int64_t(items[i].offset);
    std::vector<int64_t> ranks = sampledRanks(nTraces), offsets;
    for (int64_t rank : ranks) offsets.push_back(offsetOfRank[size_t(rank)]);
    sample->isBigEndian = isBigEndian(*loader->SegyData());
    sample->nTraces = nTraces;
    return readSegyHeaders(source, ranks, offsets, sample, error);
}

SegyHeaderMenu::SegyHeaderMenu(QWidget* parent) : QWidget(parent), _tfont(fixedFont())
{
    setObjectName("segyheadermenu");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeControls());
    _textEdit = new QPlainTextEdit;
    _textEdit->setObjectName("textEdit");
    _textEdit->setFont(_tfont);
    _textEdit->setLineWrapMode(QPlainTextEdit::NoWrap);
    _textEdit->setReadOnly(true);
    _textEdit->setToolTip(tr("The 240 bytes of the trace header"));
    _varyingView = new SegyVaryingView;
    connect(_varyingView, &SegyVaryingView::rowTaken, this, &SegyHeaderMenu::remapRowTaken);
    _viewStack = new QStackedWidget;
    _viewStack->setObjectName("viewStack");
    _viewStack->addWidget(_textEdit);
    _viewStack->addWidget(_varyingView);
    layout->addWidget(_viewStack);
    setFocusProxy(_spinBox);
}

QWidget* SegyHeaderMenu::makeControls()
{
    auto* controls = new QWidget;
    auto* layout = new QVBoxLayout(controls);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* traceRow = new QHBoxLayout;
    _spinBox = new QSpinBox;
    _spinBox->setObjectName("spinBox");
    _spinBox->setToolTip(tr("Trace in the order of the index map, from 1"));
    _spinBox->setRange(1, 1);
    // A trace is read when its number is typed whole, not at each digit.
    _spinBox->setKeyboardTracking(false);
    _spinBox->setMinimumWidth(fontMetrics().averageCharWidth() * 14);
    _trcLabel = new QLabel(tr("Total traces: ") + "0");
    _trcLabel->setObjectName("trcLabel");
    traceRow->addWidget(new QLabel(tr("Trace sequence number:")));
    traceRow->addWidget(_spinBox);
    traceRow->addSpacing(fontMetrics().averageCharWidth() * 4);
    traceRow->addWidget(_trcLabel);
    traceRow->addStretch();
    auto* viewRow = new QHBoxLayout;
    QRadioButton** const radios[] = {&_radio1, &_radio2, &_radio3, &_radio4, &_radio5, &_radio6};
    for (int i = 0; i < int(std::size(views)); ++i) {
        auto* radio = new QRadioButton(tr(views[i].label));
        radio->setObjectName(QString("radio%1").arg(i + 1));
        radio->setToolTip(tr(views[i].tip));
        viewRow->addWidget(radio);
        *radios[i] = radio;
        connect(radio, &QRadioButton::clicked, this, [this, i] { changeMethod(i); });
    }
    _radio1->setChecked(true);
    viewRow->addStretch();
    layout->addLayout(traceRow);
    layout->addLayout(viewRow);
    connect(_spinBox, qOverload<int>(&QSpinBox::valueChanged), this, &SegyHeaderMenu::changeHeader);
    return controls;
}

void SegyHeaderMenu::newLoader(SegyLoader* loader)
{
    _segyloader = loader;
    _newLoad = true;
    _isRanked = false;
}

bool SegyHeaderMenu::openTraceTab()
{
    if (_segyloader && _segyloader->isLoaded() && !_segyloader->isIndexBuilt()) {
        QMessageBox::warning(this, tr("Load Index Map"),
                             tr("Cannot show SEGY trace header data \nbecause the index map is not built.\n"
                                "Return to the SEGY Load tab and \npress the 'Build Now' button in the menu."));
        return false;
    }
    loadHeader();
    return true;
}

/// A new map is at hand: its first trace is the present one.
void SegyHeaderMenu::startFile()
{
    _istart = _icurrent = 1;
    _iend = _segyloader ? _segyloader->getTotalTraces() : 0;
    _newLoad = _iend == 0;  // without an index the map comes later
    const QSignalBlocker blocker(_spinBox);
    _spinBox->setRange(_istart, std::max(_istart, _iend));
    _spinBox->setValue(_icurrent);
    _trcLabel->setText(tr("Total traces: ") + QString::number(_iend));
    _idata.assign(_iend > 0 ? (size_t(_segyloader->bufferBytes()) + 3) / 4 : 0, 0);
}

void SegyHeaderMenu::loadHeader()
{
    if (_newLoad) startFile();
    if (_method == varyingMethod) {
        rankHeaders();
        return;
    }
    if (!_segyloader || _iend == 0 || _segyloader->seekTrace(_icurrent - 1, _idata.data(), false) < 1) {
        _textEdit->clear();
        return;
    }
    // The same field stays in view from trace to trace.
    QScrollBar* bar = _textEdit->verticalScrollBar();
    const int at = bar->value();
    segyData2* data = _segyloader->SegyData();
    const auto build = views[_method].build;
    _textEdit->setPlainText(build ? build(data->segyRawHeader(), isBigEndian(*data))
                                  : buildStandardHeader(_idata.data()));
    bar->setValue(at);
}

void SegyHeaderMenu::changeHeader(int trace)
{
    _icurrent = trace;
    loadHeader();
}

/// The ranking of the file's headers, in file order whatever the map is sorted by. Read anew for a new map only.
void SegyHeaderMenu::rankHeaders()
{
    if (_isRanked && _iend > 0) return;
    _varyingView->setRanking({}, QString());
    if (!_segyloader || _iend == 0) return;
    _varyingView->setWords(headerWordNames(_segyloader));
    SegyHeaderSample sample;
    std::string error;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool isRead = readSample(_segyloader, &sample, &error);
    const std::vector<SegyVaryingWord> ranking = isRead ? rankSegyWords(sample) : std::vector<SegyVaryingWord>();
    QApplication::restoreOverrideCursor();
    _varyingView->setRanking(
        ranking,
        isRead
            ? tr("%1 of %2 trace headers. Words that are 0 in all of them are left out.").arg(sample.count()).arg(_iend)
            : tr("Cannot read file %1:\n%2.").arg(_segyloader->currentFile(), QString::fromStdString(error)));
    _isRanked = isRead;
}

void SegyHeaderMenu::showTakenRow(const QString& answer)
{
    _varyingView->showAnswer(answer);
}

void SegyHeaderMenu::changeMethod(int method)
{
    _method = method;
    const bool isVarying = method == varyingMethod;
    _viewStack->setCurrentIndex(isVarying ? 1 : 0);
    _spinBox->setEnabled(!isVarying);  // the ranking is of all traces
    loadHeader();
    _textEdit->verticalScrollBar()->setValue(0);  // lines of another view stand for other bytes
}
