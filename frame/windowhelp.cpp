#include "frame/windowhelp.h"

#include "frame/helpkeys.h"
#include "host/home.h"
#include "widgets/bringup.h"
#include "widgets/copymissingfiles.h"
#include "widgets/helpviewer.h"

#include <QFile>
#include <QMessageBox>
#include <QTextStream>
#include <fftw3.h>
#include <qwt_global.h>

static const char* const helpFolder = "/docs/meridune-docs";

static QString readCompany()
{
    QFile file(QString(GetHome()) + "/linux/lib/company.txt");
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return QString();
    return QTextStream(&file).readLine();
}

WindowHelp::WindowHelp(QWidget* window) : _window(window), _company(readCompany())
{
    new HelpKeys(window, [this](QWidget* front, const QString& page) { showPage(front, page); });
}

void WindowHelp::showContents() const
{
    showPage(_window, "index.html");
}

void WindowHelp::showPage(QWidget* window, const QString& page) const
{
    // Pages of an older version would tell of controls that are no longer there.
    refreshFiles(QString(":") + helpFolder, QString(GetHome()) + helpFolder);
    // A child of the window in front: behind a dialog that waits for an answer nobody could use it.
    auto* parent = qobject_cast<HelpViewer*>(window) ? window->parentWidget() : window;
    bringUp(new HelpViewer(parent, GetHome(), QString(helpFolder) + "/" + page, _company));
}

/// The libraries that do most of the work, in the versions that run.
static QString libraries()
{
    return QString("Qt %1, Qwt %2, %3, X11").arg(qVersion(), QWT_VERSION_STR, fftwf_version);
}

void WindowHelp::showAbout() const
{
    const QString text = (_company.isEmpty() ? QString() : _company + "\n\n") +
                         "A interactive seismic data display and processing application.\n\n"
                         "Meridune " MERIDUNE_VERSION "\n"
                         "Licence: GNU General Public License, version 3 or later\n"
                         "Libraries: " +
                         libraries() + "\n";
    QMessageBox::about(_window, QString("About %1").arg("Seismic Display"), text);
}
