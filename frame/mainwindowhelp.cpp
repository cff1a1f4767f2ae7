#include "frame/mainwindow.h"

#include "host/home.h"
#include "widgets/bringup.h"
#include "widgets/copymissingfiles.h"
#include "widgets/helpviewer.h"

#include <QMessageBox>
#include <fftw3.h>
#include <qwt_global.h>

static const char* const helpFolder = "/docs/meridune-docs";

void MainWindow::contentHelp()
{
    showHelp(this, "index.html");
}

void MainWindow::showHelp(QWidget* window, const QString& page)
{
    // Pages of an older version would tell of controls that are no longer there.
    refreshFiles(QString(":") + helpFolder, QString(GetHome()) + helpFolder);
    // A child of the window in front: behind a dialog that waits for an answer nobody could use it.
    auto* parent = qobject_cast<HelpViewer*>(window) ? window->parentWidget() : window;
    bringUp(new HelpViewer(parent, GetHome(), QString(helpFolder) + "/" + page, _COMPANY));
}

/// The libraries that do most of the work, in the versions that run.
static QString libraries()
{
    return QString("Qt %1, Qwt %2, %3, X11").arg(qVersion(), QWT_VERSION_STR, fftwf_version);
}

void MainWindow::about()
{
    const QString text = (_COMPANY.isEmpty() ? QString() : _COMPANY + "\n\n") +
                         "A interactive seismic data display and processing application.\n\n"
                         "Meridune " MERIDUNE_VERSION "\n"
                         "Licence: GNU General Public License, version 3 or later\n"
                         "Libraries: " + libraries() + "\n";
    QMessageBox::about(this, QString("About %1").arg("Seismic Display"), text);
}
