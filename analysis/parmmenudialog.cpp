#include "analysis/parmmenudialog.h"

#include "display/displaylist.h"
#include "display/menus/colorbardialog.h"
#include "display/menus/displaymenu.h"
#include "display/menus/imagedialog.h"
#include "display/menus/scalemenu.h"
#include "display/seismicdisplay.h"
#include "display/seismicplot.h"
#include "widgets/returnkey.h"
#include "widgets/scrollroom.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>

ParmMenuDialog::ParmMenuDialog(QWidget* parent, const DisplayList* displaylist, ImageStorage* imgstore,
                               const DisplayList* otherlist)
    : QDialog(parent)
{
    setObjectName("ParmMenuDialog");
    setWindowTitle("Parameter Menu");
    auto* layout = new QVBoxLayout(this);
    _tabView = new QTabWidget;
    _tabView->setObjectName("tabView");
    _displayMenu = new DisplayMenu(displaylist, otherlist);
    _tabView->addTab(new ScrollRoom(_displayMenu), "Display");
    _scaleMenu = new ScaleMenu(displaylist, otherlist);
    _tabView->addTab(new ScrollRoom(_scaleMenu), "Plot");
    _imd = new ImageDialog(imgstore, displaylist);
    _tabView->addTab(_imd, "Image");
    _colordiag = new ColorBarDialog(displaylist, otherlist);
    _tabView->addTab(new ScrollRoom(_colordiag), "Color Bar");
    layout->addWidget(_tabView, 1);

    auto* group = new QGroupBox("Active Display");
    _displayLayout = new QHBoxLayout(group);
    _groupDisplay = new QButtonGroup(this);
    _groupDisplay->setExclusive(true);
    layout->addWidget(group);

    _dismissButton = new QPushButton("Dismiss");
    _dismissButton->setObjectName("dismissButton");
    _dismissButton->setToolTip(tr("Hides this menu; all settings stay"));
    _dismissButton->setAutoDefault(false);
    new ReturnKey(this, _dismissButton);
    auto* foot = new QHBoxLayout;
    foot->addStretch();
    foot->addWidget(_dismissButton);
    layout->addLayout(foot);

    connect(_dismissButton, &QPushButton::clicked, this, &QDialog::hide);
    connect(_scaleMenu, &ScaleMenu::conditioningChanged, this, &ParmMenuDialog::updateGain);
    connect(_scaleMenu, &ScaleMenu::overlayChanged, this, &ParmMenuDialog::overlayChanged);
    connect(_groupDisplay, &QButtonGroup::idClicked, this, &ParmMenuDialog::changeDisplay);
    if (!displaylist->isEmpty()) {
        addNewDisplay(displaylist->first());
        setOverlayMode(displaylist->first()->overlayPlot() && displaylist->first()->overlayPlot()->isVisible());
    }
    if (!otherlist) return;
    for (SeismicDisplay* display : *otherlist) addNewDisplay(display);
    connect(otherlist, &DisplayList::added, this, &ParmMenuDialog::addNewDisplay);
    connect(otherlist, &DisplayList::removed, this, [this](SeismicDisplay*, int place) { removeDisplay(place + 1); });
}

ParmMenuDialog::~ParmMenuDialog()
{
    hide();
}

void ParmMenuDialog::update()
{
    _displayMenu->update();
    _scaleMenu->update();
}

void ParmMenuDialog::updateAll()
{
    _scaleMenu->setDisplay(_lastid);
    _displayMenu->setDisplay(_lastid);
}

void ParmMenuDialog::setDisplayType(DisplayType type)
{
    _displayMenu->setDisplayType(type);
}

void ParmMenuDialog::updateGain()
{
    _displayMenu->updateGain();
}

void ParmMenuDialog::showOverlay(bool on)
{
    _scaleMenu->showOverlay(on);
}

void ParmMenuDialog::setOverlayMode(bool on)
{
    _colordiag->setOverlayMode(on);
    _scaleMenu->setOverlayMode(on);
    _displayMenu->update();
}

void ParmMenuDialog::changeDisplay(int id)
{
    _colordiag->setDisplay(id);
    _scaleMenu->setDisplay(id);
    _displayMenu->setDisplay(id);
    _lastid = id;
}

void ParmMenuDialog::addNewDisplay(SeismicDisplay* display)
{
    auto* button = new QRadioButton(display->displayTitle());
    button->setObjectName(QString("displayButton%1").arg(_ibcount));
    button->setToolTip(tr("The controls act on this display"));
    button->setChecked(_ibcount == 0);
    _groupDisplay->addButton(button, _ibcount);
    _displayLayout->addWidget(button);
    setTabOrder(button, _dismissButton);
    ++_ibcount;
}

/// The others behind it move up; who was chosen stays chosen, or the main displays are, where it was that one.
void ParmMenuDialog::removeDisplay(int id)
{
    QAbstractButton* gone = _groupDisplay->button(id);
    if (!gone) return;
    _groupDisplay->removeButton(gone);
    delete gone;
    for (int i = id + 1; i < _ibcount; ++i) {
        QAbstractButton* button = _groupDisplay->button(i);
        _groupDisplay->setId(button, i - 1);
        button->setObjectName(QString("displayButton%1").arg(i - 1));
    }
    --_ibcount;
    if (_lastid < id) return;
    const int chosen = _lastid == id ? 0 : _lastid - 1;
    if (QAbstractButton* button = _groupDisplay->button(chosen)) button->setChecked(true);
    changeDisplay(chosen);
}
