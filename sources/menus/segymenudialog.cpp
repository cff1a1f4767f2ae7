#include "sources/menus/segymenudialog.h"

#include "sources/menus/fixedfont.h"
#include "sources/menus/segybinarymenu.h"
#include "sources/menus/segyebcdicmenu.h"
#include "sources/menus/segyheadermenu.h"
#include "sources/menus/segyloadmenu.h"
#include "sources/menus/segymenuhost.h"
#include "sources/segyloader.h"
#include "widgets/returnkey.h"
#include "widgets/scrollroom.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

enum Tab { LoadTab, EbcdicTab, BinaryTab, TraceTab };

SegyMenuDialog::SegyMenuDialog(SegyMenuHost* host, QWidget* parent) : QDialog(parent), _host(host)
{
    setObjectName("SegyMenuDialog");
    setWindowTitle(tr("SEGY Menu"));
    _segyloadmenu = new SegyLoadMenu(host);
    _segyebcdicmenu = new SegyEbcdicMenu;
    _segybinarymenu = new SegyBinaryMenu;
    _segyheadermenu = new SegyHeaderMenu;
    _tabWidget = new QTabWidget;
    _tabWidget->setObjectName("tabWidget");
    _tabWidget->addTab(new ScrollRoom(_segyloadmenu), tr("Load"));
    _tabWidget->addTab(_segyebcdicmenu, tr("EBCDIC"));
    _tabWidget->addTab(_segybinarymenu, tr("Binary"));
    _tabWidget->addTab(_segyheadermenu, tr("Trace"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(_tabWidget);
    makeButtons();
    layout->addWidget(_buttonBox);
    // A line of the text header whole, whatever the font; the height is that of the fields.
    resize(std::max(sizeHint().width(), QFontMetrics(fixedFont()).averageCharWidth() * 90), sizeHint().height());
    connect(_tabWidget, &QTabWidget::currentChanged, this, &SegyMenuDialog::changeTab);
    connect(_segyheadermenu, &SegyHeaderMenu::remapRowTaken, this, &SegyMenuDialog::takeRemapRow);
    changeTab(LoadTab);
    if (_host->segyLoader()) buildConnections(_host->segyLoader());
}

/// Return ends the entry of a field; it must not open a file.
QPushButton* SegyMenuDialog::addButton(const QString& text, const char* name, const QString& tip, bool isDismiss)
{
    QPushButton* button =
        _buttonBox->addButton(text, isDismiss ? QDialogButtonBox::RejectRole : QDialogButtonBox::ActionRole);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

void SegyMenuDialog::makeButtons()
{
    _buttonBox = new QDialogButtonBox;
    _buttonBox->setObjectName("buttonBox");
    _openButton = addButton(tr("&Open"), "openButton", tr("Open the file and show its first ensemble"));
    _loadButton = addButton(tr("&Load"), "loadButton", tr("Fill the text from a file; the reel header stays"));
    _saveButton = addButton(tr("&Save"), "saveButton", tr("Write the text to a file"));
    _editButton = addButton(tr("&Edit"), "editButton", tr("Switch between looking at the text and editing it"));
    _editButton->setCheckable(true);
    addButton(tr("&Dismiss"), "dismissButton", tr("Close the menu"), true);
    new ReturnKey(this, _openButton);
    connect(_openButton, &QPushButton::clicked, this, &SegyMenuDialog::accept);
    connect(_loadButton, &QPushButton::clicked, _segyebcdicmenu, &SegyEbcdicMenu::loadNewEbcdic);
    connect(_saveButton, &QPushButton::clicked, _segyebcdicmenu, &SegyEbcdicMenu::saveEbcdic);
    connect(_editButton, &QPushButton::clicked, _segyebcdicmenu, &SegyEbcdicMenu::setReadWriteState);
    connect(_buttonBox, &QDialogButtonBox::rejected, this, &SegyMenuDialog::reject);
}

SegyLoadParm SegyMenuDialog::loadParm() const
{
    return _segyloadmenu->parm();
}

void SegyMenuDialog::setLoadParm(const SegyLoadParm& parm)
{
    _segyloadmenu->setParm(parm);
}

SegyRemapTable SegyMenuDialog::remapTable() const
{
    return _segyloadmenu->remapTable();
}

void SegyMenuDialog::buildConnections(SegyLoader* loader)
{
    if (_segyloader) disconnect(_segyloader, nullptr, this, nullptr);
    _segyloader = loader;
    _segyloadmenu->newLoader(loader);
    _segyebcdicmenu->newLoader(loader);
    _segybinarymenu->newLoader(loader);
    _segyheadermenu->newLoader(loader);
    _isBuilt = loader != nullptr;
    if (!loader) return;
    connect(loader, &SegyLoader::reLoadData, this, &SegyMenuDialog::loadTabs);
    connect(loader, &SegyLoader::keysChanged, this,
            &SegyMenuDialog::loadTabs);  // the trace tab counts in the new order
    // A loader that was at work before the dialog came has said all it has to say.
    if (loader->isLoaded()) loadTabs();
}

void SegyMenuDialog::loadTabs()
{
    // The same file is read anew when its index is built: that must not take an edited text away.
    if (!_segyebcdicmenu->isEdited()) _segyebcdicmenu->loadEbcdic();
    _segybinarymenu->loadBinary();
    _segyheadermenu->loadHeader();
}

void SegyMenuDialog::takeRemapRow(const QString& word, const QString& format, int startByte)
{
    const int row = _segyloadmenu->takeRemapRow(word, format, startByte);
    _segyheadermenu->showTakenRow(row > 0 ? tr("Row %1 of the remap table: %2, %3, byte %4. The ensembles loaded next "
                                               "read it; the index does when it is built anew.")
                                                .arg(row)
                                                .arg(word, format)
                                                .arg(startByte)
                                          : tr("The remap table has no row left; nothing was taken."));
}

void SegyMenuDialog::changeTab(int tab)
{
    _openButton->setEnabled(tab == LoadTab);
    for (QPushButton* button : {_loadButton, _saveButton, _editButton}) button->setEnabled(tab == EbcdicTab);
    if (tab == TraceTab) _segyheadermenu->openTraceTab();
}

void SegyMenuDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    _tabWidget->currentWidget()->setFocus();
}

void SegyMenuDialog::accept()
{
    if (!_segyloadmenu->checkFields()) return;
    QDialog::accept();
    _isOpen = true;
    _isLoadFailed = _host->segyLoadFromMenu() == 0;
    _segyloadmenu->newLoader(_host->segyLoader());
}

void SegyMenuDialog::reject()
{
    _isOpen = false;
    QDialog::reject();
}
