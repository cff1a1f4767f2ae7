/// Stored pictures in the main window: the boxes "Save Images" and "Show Images", and collections.
#include "frame/mainwindow.h"

#include "analysis/parmmenudialog.h"
#include "display/imagedialog.h"
#include "display/imagestorage.h"
#include "display/myqwtplotcanvas.h"
#include "display/seismicdisplay.h"
#include "frame/windowactions.h"
#include "frame/windowreport.h"
#include "tracedata/parmmenu.h"

#include <QAction>
#include <QCheckBox>
#include <QMessageBox>

void MainWindow::makeImageStorage()
{
    _imgstore = std::make_unique<ImageStorage>();
    _imgstore->setReport(_report.get());
    QCheckBox* box = _actions->box("savImageBox");
    connect(_imgstore.get(), &ImageStorage::storedChanged, box, &QCheckBox::setChecked);
    // Not at once: an ensemble is being loaded.
    connect(_imgstore.get(), &ImageStorage::full, this, [this] {
        QMessageBox::critical(this, "Image Error",
                              "The saved images fill a quarter of the memory.\nNo more images are saved.");
    }, Qt::QueuedConnection);
    // A flow collects anew with each "next"; without one a collection is made once.
    connect(_imgstore.get(), &ImageStorage::collected, this, [this] {
        if (_menu->dotrevia != 1) setCollecting(false);
    });
    if (_menu->dostore != 0) _imgstore->setStored(true);
    if (_menu->docollect != 0) {
        _imgstore->setCollect(true);
        _imgstore->setCollectTotal(_menu->icollect);
    }
}

bool MainWindow::isCollectImage(int* n) const
{
    *n = _imgstore ? _imgstore->collectTotal() : 0;
    return *n > 1;
}

void MainWindow::setCollecting(bool on)
{
    if (_imgstore) _imgstore->setCollect(on);
}

void MainWindow::storeImages()
{
    for (SeismicDisplay* display : qAsConst(_displaylist)) display->storeImage(false);
}

/// A new ensemble is on a screen: the data are shown.
void MainWindow::endViewing()
{
    if (!_parmmenu) return;
    _parmmenu->imageDialog()->setDoView(false);
    _parmmenu->imageDialog()->checkCount();
}

void MainWindow::saveImage(int state)
{
    if (_imgstore) _imgstore->setStored(state != 0);
}

void MainWindow::showImage(int state)
{
    QCheckBox* box = _actions->box("showImageBox");
    if (state != 0 && (!_imgstore || _imgstore->storeTotal() == 0)) {
        box->setChecked(false);
        QMessageBox::critical(this, "Image Error", "No images are saved.");
        return;
    }
    QAction* forward = _actions->action("forwardAct");
    if (state != 0) makeParmMenu();
    if (_isViewing != (state != 0)) {
        _isViewing = state != 0;
        if (_isViewing) _couldGoForward = forward->isEnabled();
        forward->setEnabled(!_isViewing && _couldGoForward);
    }
    if (_parmmenu) _parmmenu->imageDialog()->changeViewFlag(state != 0);
    checkRadioButtons();
}

/// The window as it stands, for exports: what the X server alone holds is painted first.
QPixmap MainWindow::wholePicture()
{
    for (SeismicDisplay* display : qAsConst(_displaylist)) display->myCanvas()->hideStored();
    return grab();
}
