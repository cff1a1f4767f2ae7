#include "widgets/helpviewer.h"

#include "widgets/helpbrowser.h"

#include <QAction>
#include <QFileInfo>
#include <QMenuBar>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <QToolBar>
#include <QUrl>

HelpViewer::HelpViewer(QWidget* parent, const QString& folder, const QString& page, const QString& company)
    : QMainWindow(parent), _browser(new HelpBrowser(this))
{
    setObjectName("HelpViewer");
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(company.isEmpty() ? QString("Help Viewer") : "Help Viewer - " + company);
    _browser->setObjectName("browser");
    _browser->setOpenExternalLinks(false);
    _browser->document()->setDocumentMargin(16);
    setCentralWidget(_browser);
    // A page of text wants height: most of the screen's, and the picture's width.
    resize(HelpBrowser::widestPicture + 80, screen() ? screen()->availableGeometry().height() * 9 / 10 : 820);

    QMenu* file = menuBar()->addMenu("&File");
    QToolBar* bar = addToolBar("Help");
    bar->setObjectName("helpToolBar");
    const auto add = [&](const char* name, const char* text, const QKeySequence& key, auto slot) {
        QAction* action = file->addAction(text, this, slot);
        action->setObjectName(name);
        action->setShortcut(key);
        return action;
    };
    add("printAct", "&Print", QKeySequence::Print, [this] { print(); });
    QAction* next = add("nextAct", "&Next File", Qt::Key_N, [this] { _browser->forward(); });
    QAction* previous = add("previousAct", "Previous File (B)", Qt::Key_B, [this] { _browser->backward(); });
    add("exitAct", "&Exit", QKeySequence::Close, [this] { close(); });
    bar->addAction(previous);
    bar->addAction(next);
    next->setEnabled(false);
    previous->setEnabled(false);
    connect(_browser, &QTextBrowser::forwardAvailable, next, &QAction::setEnabled);
    connect(_browser, &QTextBrowser::backwardAvailable, previous, &QAction::setEnabled);

    const QString first = folder + page;
    if (QFileInfo::exists(first))
        _browser->setSource(QUrl::fromLocalFile(first));
    else
        _browser->setPlainText("The help pages are not installed: " + first + " is missing.");
}

void HelpViewer::print()
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted) _browser->print(&printer);
}
