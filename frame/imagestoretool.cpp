#include "frame/imagestoretool.h"

#include "analysis/parmmenudialog.h"
#include "display/displaylist.h"
#include "display/images/imagestorage.h"
#include "display/menus/imagedialog.h"
#include "display/seismicdisplay.h"
#include "frame/parmtool.h"
#include "frame/windowactions.h"
#include "tracedata/parmmenu.h"

#include <QAction>
#include <QCheckBox>
#include <QMessageBox>

ImageStoreTool::ImageStoreTool(QWidget* window, ImageStorage* store, ParmTool* parms, const DisplayList* displays,
                               WindowActions* actions, parmmenu* menu)
    : _window(window), _store(store), _parms(parms), _displays(displays), _actions(actions), _menu(menu)
{
    followStore();
    connect(parms, &ParmTool::menuMade, this, &ImageStoreTool::followMenu);
}

void ImageStoreTool::beforeDisplaysCome()
{
    if (_menu->dostore != 0) _store->setStored(true);
    if (_menu->docollect != 0) {
        _store->setCollect(true);
        _store->setCollectTotal(_menu->icollect);
    }
}

void ImageStoreTool::followStore()
{
    connect(_store, &ImageStorage::storedChanged, _actions->box("savImageBox"), &QCheckBox::setChecked);
    // Not at once: an ensemble is being loaded.
    connect(
        _store, &ImageStorage::full, this,
        [this] {
            QMessageBox::critical(_window, "Image Error",
                                  "The saved images fill a quarter of the memory.\nNo more images are saved.");
        },
        Qt::QueuedConnection);
    // A flow collects anew with each "next"; without one a collection is made once.
    connect(_store, &ImageStorage::collected, this, [this] {
        if (_menu->dotrevia != 1) setCollecting(false);
    });
}

void ImageStoreTool::followMenu(ParmMenuDialog* made)
{
    connect(made->imageDialog(), &ImageDialog::viewChanged, _actions->box("showImageBox"), &QCheckBox::setChecked);
}

bool ImageStoreTool::isCollecting(int* n) const
{
    *n = _store->collectTotal();
    return *n > 1;
}

void ImageStoreTool::setCollecting(bool on)
{
    _store->setCollect(on);
}

void ImageStoreTool::setStored(bool on)
{
    _store->setStored(on);
}

void ImageStoreTool::showPictures(bool on)
{
    if (on && _store->storeTotal() == 0) {
        _actions->box("showImageBox")->setChecked(false);
        QMessageBox::critical(_window, "Image Error", "No images are saved.");
        return;
    }
    QAction* forward = _actions->action("forwardAct");
    if (on) _parms->menu();
    if (_isViewing != on) {
        _isViewing = on;
        if (_isViewing) _couldGoForward = forward->isEnabled();
        forward->setEnabled(!_isViewing && _couldGoForward);
    }
    if (ParmMenuDialog* made = _parms->madeMenu()) made->imageDialog()->changeViewFlag(on);
    emit viewingChanged();
}

void ImageStoreTool::beforeRecord()
{
    for (SeismicDisplay* display : *_displays) display->storeImage(false);
}

/// The data are shown.
void ImageStoreTool::endViewing()
{
    ParmMenuDialog* made = _parms->madeMenu();
    if (!made) return;
    made->imageDialog()->setDoView(false);
    made->imageDialog()->checkCount();
}

void ImageStoreTool::afterRecord(int)
{
    endViewing();
}

void ImageStoreTool::beforeData()
{
    endViewing();
}

/// A movie doesn't play on when its button is gone.
void ImageStoreTool::hide()
{
    if (ParmMenuDialog* made = _parms->madeMenu()) made->imageDialog()->endLoop();
}
