#include "frame/mainwindow.h"

#include "host/home.h"
#include "widgets/copymissingfiles.h"
#include "widgets/helpviewer.h"

#include <QMessageBox>

static const char* const helpFolder = "/docs/meridune-docs";

void MainWindow::contentHelp()
{
    // Pages of an older version would tell of controls that are no longer there.
    refreshFiles(QString(":") + helpFolder, QString(GetHome()) + helpFolder);
    (new HelpViewer(this, GetHome(), QString(helpFolder) + "/index.html", _COMPANY))->show();
}

void MainWindow::about()
{
    const QString text = (_COMPANY.isEmpty() ? QString() : _COMPANY + "\n\n") +
                         "A interactive seismic data display and processing application.\n";
    QMessageBox::about(this, QString("About %1").arg("Seismic Display"), text);
}
