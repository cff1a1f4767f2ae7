#include "sources/menus/segyloadmenu.h"

#include "sources/menus/segyguessdialog.h"
#include "sources/menus/segymenuhost.h"
#include "sources/menus/segyremapdialog.h"
#include "sources/segyguesssettings.h"
#include "sources/segyloader.h"
#include "sources/segysamples.h"
#include "widgets/appsettings.h"
#include "widgets/bringup.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <cfloat>
#include <climits>

/// Smallest sample interval in ms that counts as one.
constexpr double leastRate = 1e-7;

SegyLoadMenu::SegyLoadMenu(SegyMenuHost* host, QWidget* parent) : QWidget(parent), _host(host)
{
    setObjectName("segyloadmenu");
    AppSettings settings;
    _homePath = settings.value(SettingsKey::lastFolder, QDir::homePath()).toString();
    auto* grid = new QGridLayout(this);
    grid->setColumnStretch(1, 1);
    makeFileRow(grid);
    makeCombos(grid);
    makeNumbers(grid);
    makeIndexRow(grid);
    makeRemapRow(grid);
    makeGuessRow(grid);
    makeLayoutGroup(grid);
    grid->setRowStretch(grid->rowCount(), 1);
    orderTabs();
    setFocusProxy(_fileField);
    setParm(_host->segyLoadParm());
}

void SegyLoadMenu::makeFileRow(QGridLayout* grid)
{
    _fileField = new QLineEdit;
    _fileField->setObjectName("fileField");
    _fileField->setToolTip(tr("The SEG-Y file, or several with commas between"));
    _fileField->setMinimumWidth(fontMetrics().averageCharWidth() * 48);
    _browseButton = new QPushButton(tr("Browse"));
    _browseButton->setObjectName("browseButton");
    _browseButton->setToolTip(tr("Pick one file or more"));
    _browseButton->setAutoDefault(false);
    grid->addWidget(new QLabel(tr("File(s) to load:")), 0, 0);
    grid->addWidget(_fileField, 0, 1);
    grid->addWidget(_browseButton, 0, 2);
    connect(_browseButton, &QPushButton::clicked, this, &SegyLoadMenu::changeFiles);
}

QComboBox* SegyLoadMenu::addCombo(QGridLayout* grid, const QString& label, const char* name, const QStringList& values,
                                  const QString& tip)
{
    auto* box = new QComboBox;
    box->setObjectName(name);
    box->addItems(values);
    box->setToolTip(tip);
    box->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    const int row = grid->rowCount();
    grid->addWidget(new QLabel(label), row, 0);
    grid->addWidget(box, row, 1, Qt::AlignLeft);
    return box;
}

void SegyLoadMenu::makeCombos(QGridLayout* grid)
{
    QStringList formats;
    for (const std::string& format : segyFormatChoices()) formats += tr(format.c_str());
    _sortBox = addCombo(grid, tr("Data sort order:"), "sortBox", QStringList(tr("Get From Data")) + segySortNames(),
                        tr("The key that makes an ensemble; \"Get From Data\" takes the sort code of the reel header"));
    _typeBox = addCombo(grid, tr("SEGY file type:"), "typeBox", {tr("Standard"), tr("MSDOS")},
                        tr("Standard: EBCDIC text, highest byte first. MSDOS: ASCII text, lowest byte first"));
    _formatBox = addCombo(grid, tr("Data sample format:"), "formatBox", formats,
                          tr("How samples are stored; \"Get From Data\" takes the format code of the reel header"));
}

QLineEdit* SegyLoadMenu::addNumber(QGridLayout* grid, const QString& label, const char* name, const QString& unit,
                                   const QString& tip)
{
    auto* edit = new QLineEdit;
    edit->setObjectName(name);
    edit->setToolTip(tip);
    edit->setFixedWidth(fontMetrics().averageCharWidth() * 16);
    auto* row = new QHBoxLayout;
    row->addWidget(edit);
    row->addWidget(new QLabel(unit));
    row->addStretch();
    const int at = grid->rowCount();
    grid->addWidget(new QLabel(label), at, 0);
    grid->addLayout(row, at, 1);
    return edit;
}

void SegyLoadMenu::makeNumbers(QGridLayout* grid)
{
    _maxVal = addNumber(grid, tr("Max traces per ensemble:"), "maxVal", QString(),
                        tr("Traces, from 1; empty takes the reel header's number"));
    _nsampVal = addNumber(grid, tr("Num samples per trace:"), "nsampVal", QString(),
                          tr("Samples, from 1; empty takes the reel header's number"));
    _srateVal = addNumber(grid, tr("Input sample rate:"), "srateVal", tr(" msec"),
                          tr("Milliseconds between samples, from 1e-7; empty takes the reel header's interval"));
    connect(_maxVal, &QLineEdit::editingFinished, this, &SegyLoadMenu::changeMaxTraces);
    connect(_nsampVal, &QLineEdit::editingFinished, this, &SegyLoadMenu::changeSamples);
    connect(_srateVal, &QLineEdit::editingFinished, this, &SegyLoadMenu::changeRate);
}

void SegyLoadMenu::makeIndexRow(QGridLayout* grid)
{
    const QStringList answers = {tr("No"), tr("Yes")};
    _variBox = addCombo(grid, tr("Variable trace length?"), "variBox", answers,
                        tr("Each trace header tells its own number of samples"));
    _coorBox = addCombo(grid, tr("Apply coordinate scalar?"), "coorBox", answers,
                        tr("Multiply or divide coordinates by the word at byte 71 of the trace header"));
    _elevBox = addCombo(grid, tr("Apply depth/elev scalar?"), "elevBox", answers,
                        tr("Multiply or divide elevations and depths by the word at byte 69 of the trace header"));
    _indexBox = addCombo(grid, tr("Build index map?"), "indexBox", answers,
                         tr("Read all trace headers when the file opens, so that any ensemble can be reached"));
    const int row = grid->rowCount() - 1;
    _buttonBuild = new QPushButton(tr("Build Now"));
    _buttonBuild->setObjectName("buttonBuild");
    _buttonBuild->setToolTip(tr("Build the index map of the file on the screen in the background"));
    _buttonBuild->setAutoDefault(false);
    _buttonBuild->setEnabled(false);
    _buildLabel = new QLabel(tr("          Loading . . . ."));
    _buildLabel->setObjectName("buildLabel");
    QPalette red = _buildLabel->palette();
    red.setColor(QPalette::WindowText, Qt::red);
    _buildLabel->setPalette(red);
    _buildLabel->hide();
    auto* cell = new QHBoxLayout;
    cell->addWidget(_indexBox);
    cell->addWidget(_buttonBuild);
    cell->addWidget(_buildLabel);
    cell->addStretch();
    grid->addLayout(cell, row, 1);
    connect(_indexBox, qOverload<int>(&QComboBox::currentIndexChanged), this, &SegyLoadMenu::changeBuildIndex);
    connect(_buttonBuild, &QPushButton::clicked, this, &SegyLoadMenu::buildIndexNow);
}

void SegyLoadMenu::makeRemapRow(QGridLayout* grid)
{
    _remapBox = new QCheckBox(tr("Re-map Headers"));
    _remapBox->setObjectName("remapBox");
    _remapBox->setToolTip(tr("Fill header words from the bytes that the remap table names"));
    _remapButton = new QPushButton(tr("Re-map Table"));
    _remapButton->setObjectName("remapButton");
    _remapButton->setToolTip(tr("Edit, load and save the remap table"));
    _remapButton->setAutoDefault(false);
    const int row = grid->rowCount();
    grid->addWidget(_remapBox, row, 0);
    grid->addWidget(_remapButton, row, 1, Qt::AlignLeft);
    connect(_remapBox, &QCheckBox::stateChanged, this, &SegyLoadMenu::changeRemap);
    connect(_remapButton, &QPushButton::clicked, this, &SegyLoadMenu::changeRemapTable);
}

void SegyLoadMenu::makeGuessRow(QGridLayout* grid)
{
    _guessButton = new QPushButton(tr("Guess Settings"));
    _guessButton->setObjectName("guessButton");
    _guessButton->setToolTip(tr("Look at the file, fill the fields with what reads it, and show why"));
    _guessButton->setAutoDefault(false);
    grid->addWidget(_guessButton, grid->rowCount(), 1, Qt::AlignLeft);
    connect(_guessButton, &QPushButton::clicked, this, &SegyLoadMenu::guessSettings);
}

/// Files that keep to the standard's first edition leave all of these alone.
void SegyLoadMenu::makeLayoutGroup(QGridLayout* grid)
{
    _layoutGroup = new QGroupBox(tr("Layout"));
    _layoutGroup->setObjectName("layoutGroup");
    auto* inner = new QGridLayout(_layoutGroup);
    inner->setColumnStretch(1, 1);
    _firstTraceVal = addNumber(inner, tr("First trace at byte:"), "firstTraceVal", QString(),
                               tr("From 3600; each extended text header moves it by 3200. Empty is 3600"));
    _headerVal = addNumber(inner, tr("Trace header length:"), "headerVal", tr(" bytes"),
                           tr("From 240; each trace header extension adds 240. Empty is 240"));
    QStringList formats = {tr("As the sample format says")};
    for (const SegyLayoutSample& sample : segyLayoutSamples()) formats += tr(sample.name);
    _layoutFormatBox = addCombo(inner, tr("Other samples:"), "layoutFormatBox", formats,
                                tr("Samples that the sample formats have no entry for; goes before these"));
    _orderBox = addCombo(inner, tr("Byte order:"), "orderBox",
                         {tr("By the file type"), tr("Highest byte first"), tr("Lowest byte first")},
                         tr("For files whose text is of one type and whose numbers are of the other"));
    grid->addWidget(_layoutGroup, grid->rowCount(), 0, 1, 3);
    connect(_firstTraceVal, &QLineEdit::editingFinished, this, &SegyLoadMenu::changeFirstTrace);
    connect(_headerVal, &QLineEdit::editingFinished, this, &SegyLoadMenu::changeHeaderLength);
}

void SegyLoadMenu::orderTabs()
{
    QWidget* const order[] = {_fileField,   _browseButton,  _sortBox,     _typeBox,         _formatBox,
                              _maxVal,      _nsampVal,      _srateVal,    _variBox,         _coorBox,
                              _elevBox,     _indexBox,      _buttonBuild, _remapBox,        _remapButton,
                              _guessButton, _firstTraceVal, _headerVal,   _layoutFormatBox, _orderBox};
    for (size_t i = 1; i < std::size(order); ++i) setTabOrder(order[i - 1], order[i]);
}

static void choose(QComboBox* box, int index)
{
    box->setCurrentIndex(index > 0 && index < box->count() ? index : 0);
}

/// A number for its field; 0 and less are told by an empty one.
static void showNumber(QLineEdit* edit, QString* kept, double value)
{
    *kept = value > 0.0 ? QString::number(value, 'g', 10) : QString();
    edit->setText(*kept);
}

/// Entry of the list of other samples; 0 for none of them.
static int layoutFormatIndex(int format)
{
    const std::vector<SegyLayoutSample>& list = segyLayoutSamples();
    const auto found =
        std::find_if(list.begin(), list.end(), [=](const auto& entry) { return entry.format == format; });
    return found == list.end() ? 0 : int(found - list.begin()) + 1;
}

void SegyLoadMenu::setParm(const SegyLoadParm& parm)
{
    QString files = parm.files;
    while (files.endsWith(',')) files.chop(1);
    _fileField->setText(files);
    choose(_sortBox, parm.isort);
    choose(_typeBox, parm.itype);
    choose(_formatBox, parm.iformat);
    choose(_variBox, parm.ivariable != 0);
    choose(_coorBox, parm.icscale != 0);
    choose(_elevBox, parm.iescale != 0);
    choose(_indexBox, parm.indexbuilt != 0);
    showNumber(_maxVal, &_maxText, parm.maxtr);
    showNumber(_nsampVal, &_nsampText, parm.nsamp);
    // Seven digits are what a float carries: 0.3 shall not read 0.300000012.
    showNumber(_srateVal, &_srateText, QString::number(double(parm.srate), 'g', 7).toDouble());
    showNumber(_firstTraceVal, &_firstTraceText, double(parm.layout.firstTrace));
    showNumber(_headerVal, &_headerText, parm.layout.headerBytes);
    choose(_layoutFormatBox, layoutFormatIndex(parm.layout.sampleFormat));
    choose(_orderBox, int(parm.layout.byteOrder));
    _remapBox->setChecked(parm.iremap != 0);
}

SegyLoadParm SegyLoadMenu::parm() const
{
    SegyLoadParm parm;
    parm.files = _fileField->text().trimmed();
    parm.isort = _sortBox->currentIndex();
    parm.itype = _typeBox->currentIndex();
    parm.iformat = _formatBox->currentIndex();
    parm.ivariable = _variBox->currentIndex();
    parm.icscale = _coorBox->currentIndex();
    parm.iescale = _elevBox->currentIndex();
    parm.indexbuilt = _buildIndex;
    parm.maxtr = _maxText.toInt();
    parm.nsamp = _nsampText.toInt();
    parm.srate = _srateText.toFloat();
    parm.iremap = _remapBox->isChecked() ? 1 : 0;
    if (!_firstTraceText.isEmpty()) parm.layout.firstTrace = _firstTraceText.toLongLong();
    if (!_headerText.isEmpty()) parm.layout.headerBytes = _headerText.toInt();
    const int other = _layoutFormatBox->currentIndex();
    parm.layout.sampleFormat = other > 0 ? segyLayoutSamples()[size_t(other) - 1].format : 0;
    parm.layout.byteOrder = SegyByteOrder(_orderBox->currentIndex());
    return parm;
}

SegyRemapTable SegyLoadMenu::remapTable() const
{
    return _smt ? _smt->table() : SegyRemapTable();
}

bool SegyLoadMenu::checkFields()
{
    if (_fileField->text().trimmed().isEmpty()) return refuse(_fileField, QString(), tr("No file to load is named."));
    return checkCount(_maxVal, &_maxText, tr("The number of traces")) &&
           checkCount(_nsampVal, &_nsampText, tr("The number of samples")) && checkRate() && checkFirstTrace() &&
           checkHeaderLength();
}

/// Puts the old text back before the box comes up, for that takes the focus and so ends the entry once more.
bool SegyLoadMenu::refuse(QLineEdit* edit, const QString& kept, const QString& text)
{
    edit->setText(kept);
    QMessageBox::warning(this, tr("SEGY Menu"), text);
    edit->selectAll();
    return false;
}

bool SegyLoadMenu::checkCount(QLineEdit* edit, QString* kept, const QString& what)
{
    const QString text = edit->text().trimmed();
    bool isNumber = false;
    if (!text.isEmpty() && (text.toInt(&isNumber) < 1 || !isNumber))
        return refuse(edit, *kept, tr("%1 must be a whole number from 1, or empty.").arg(what));
    *kept = text;
    return true;
}

bool SegyLoadMenu::checkPlace(QLineEdit* edit, QString* kept, const QString& what, int least, int most)
{
    const QString text = edit->text().trimmed();
    bool isNumber = false;
    const int value = text.toInt(&isNumber);
    if (!text.isEmpty() && (!isNumber || value < least || value > most))
        return refuse(edit, *kept,
                      most == INT_MAX
                          ? tr("%1 must be a whole number from %2, or empty.").arg(what).arg(least)
                          : tr("%1 must be a whole number from %2 to %3, or empty.").arg(what).arg(least).arg(most));
    *kept = text;
    return true;
}

bool SegyLoadMenu::checkFirstTrace()
{
    return checkPlace(_firstTraceVal, &_firstTraceText, tr("The byte of the first trace"), segyReelBytes, INT_MAX);
}

bool SegyLoadMenu::checkHeaderLength()
{
    return checkPlace(_headerVal, &_headerText, tr("The trace header length"), segyTraceHeaderBytes,
                      mostSegyHeaderBytes);
}

bool SegyLoadMenu::checkRate()
{
    const QString text = _srateVal->text().trimmed();
    bool isNumber = false;
    const double rate = text.toDouble(&isNumber);
    if (!text.isEmpty() && !(isNumber && rate >= leastRate && rate <= double(FLT_MAX)))
        return refuse(_srateVal, _srateText, tr("The sample rate must be a number of msec from 1e-7, or empty."));
    _srateText = text;
    return true;
}

void SegyLoadMenu::newLoader(SegyLoader* loader)
{
    _buttonBuild->setEnabled(loader && !loader->isIndexBuilding());
    _buildLabel->setVisible(loader && loader->isIndexBuilding());
}

void SegyLoadMenu::changeFiles()
{
    const QStringList names = QFileDialog::getOpenFileNames(this, tr("SEGY File Loader"), _homePath,
                                                            tr("All files (*);;SEG-Y (*.sgy *.segy *.SGY *.SEGY)"));
    if (names.isEmpty()) return;
    _homePath = QFileInfo(names.first()).absolutePath();
    AppSettings().setValue(SettingsKey::lastFolder, _homePath);
    for (const QString& name : names)
        if (name.contains(',')) {
            QMessageBox::warning(this, tr("SEGY File Loader"),
                                 tr("A file name with a comma can't be in the list of files:\n%1").arg(name));
            return;
        }
    _fileField->setText(names.join(","));
}

void SegyLoadMenu::changeBuildIndex(int index)
{
    _buildIndex = index;
}

void SegyLoadMenu::buildIndexNow()
{
    SegyLoader* loader = _host->segyLoader();
    if (!loader) return;
    _indexBox->setCurrentIndex(1);
    // Connected before the start: a short build can end before the next line.
    connect(loader, &SegyLoader::indexBuildEnded, this, &SegyLoadMenu::threadFinished, Qt::UniqueConnection);
    loader->startIndexBuild();
    newLoader(loader);
}

void SegyLoadMenu::threadFinished()
{
    SegyLoader* loader = _host->segyLoader();
    newLoader(loader);
    // A table without a usable row switches itself off while the map builds.
    if (loader && loader->isIndexBuilt() && !loader->applyRemap()) _remapBox->setChecked(false);
}

void SegyLoadMenu::changeRemap(int state)
{
    if (SegyLoader* loader = _host->segyLoader()) loader->setRemapTable(state != 0 ? 1 : 0, remapTable());
}

void SegyLoadMenu::makeRemapDialog()
{
    if (_smt) return;
    _smt = new SegyRemapDialog(this);
    connect(_smt, &SegyRemapDialog::tableChanged, this, [this] { changeRemap(_remapBox->isChecked()); });
}

void SegyLoadMenu::changeRemapTable()
{
    makeRemapDialog();
    bringUp(_smt);
    _remapBox->setChecked(true);
}

int SegyLoadMenu::takeRemapRow(const QString& word, const QString& format, int startByte)
{
    SegyRemapTable table = remapTable();
    const int row = putRemapRow(&table, word, format, startByte);
    if (row == 0) return 0;
    makeRemapDialog();
    _remapBox->setChecked(true);
    _smt->setTable(table);
    return row;
}

void SegyLoadMenu::guessSettings()
{
    const QString file = _fileField->text().section(",", 0, 0).trimmed();
    if (file.isEmpty()) {
        QMessageBox::warning(this, tr("Guess Settings"), tr("No file to look at is named."));
        return;
    }
    const SegyLoadParm before = parm();
    SegyGuess guess;
    std::string error;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool isRead = guessSegyFile(QFile::encodeName(file).toStdString(), before, &guess, &error);
    QApplication::restoreOverrideCursor();
    if (!isRead) {
        QMessageBox::warning(this, tr("Guess Settings"),
                             tr("Cannot read file %1:\n%2.").arg(file, QString::fromStdString(error)));
        return;
    }
    _beforeGuess = before;
    if (guess.verdict == SegyGuess::Read) setParm(guess.parm);
    if (!_guessDialog) {
        _guessDialog = new SegyGuessDialog(this);
        connect(_guessDialog, &SegyGuessDialog::restoreAsked, this, &SegyLoadMenu::restoreSettings);
    }
    _guessDialog->setGuess(file, guess, before);
    bringUp(_guessDialog);
}

void SegyLoadMenu::restoreSettings()
{
    SegyLoadParm before = _beforeGuess;
    before.files = _fileField->text();
    before.iremap = _remapBox->isChecked() ? 1 : 0;
    setParm(before);
}
