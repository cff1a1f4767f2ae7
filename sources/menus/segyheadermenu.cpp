#include "sources/menus/segyheadermenu.h"

#include "sources/menus/fixedfont.h"
#include "sources/menus/segyheadertext.h"
#include "sources/segyloader.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>

/// The views by _method.
static const struct {
    const char* label;
    const char* tip;
    QString (*build)(const void*);
} views[] = {
    {"Standard", "The SEG-Y fields with their names", buildStandardHeader},
    {"Short", "Each 2 bytes as an integer, in both byte orders", buildShortHeader},
    {"Integer", "Each 4 bytes as an integer, in both byte orders", buildIntegerHeader},
    {"Float", "Each 4 bytes as IEEE and IBM floating point, in both byte orders", buildFloatHeader},
    {"Ascii", "Each byte as a character", buildAsciiHeader},
};

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
    layout->addWidget(_textEdit);
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
    QRadioButton** const radios[] = {&_radio1, &_radio2, &_radio3, &_radio4, &_radio5};
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
    _idata.assign(_iend > 0 ? (size_t(_segyloader->maxBytes()) + 3) / 4 : 0, 0);
}

void SegyHeaderMenu::loadHeader()
{
    if (_newLoad) startFile();
    if (!_segyloader || _iend == 0 || _segyloader->seekTrace(_icurrent - 1, _idata.data(), false) < 1) {
        _textEdit->clear();
        return;
    }
    // The same field stays in view from trace to trace.
    QScrollBar* bar = _textEdit->verticalScrollBar();
    const int at = bar->value();
    _textEdit->setPlainText(views[_method].build(_idata.data()));
    bar->setValue(at);
}

void SegyHeaderMenu::changeHeader(int trace)
{
    _icurrent = trace;
    loadHeader();
}

void SegyHeaderMenu::changeMethod(int method)
{
    _method = method;
    loadHeader();
    _textEdit->verticalScrollBar()->setValue(0);  // lines of another view stand for other bytes
}
