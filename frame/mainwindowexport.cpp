/// Prints and pictures of the main window.
#include "frame/mainwindow.h"

#include "display/myqwtplotcanvas.h"
#include "display/seismicdisplay.h"
#include "frame/printeddisplay.h"
#include "frame/sectionexportdialog.h"
#include "sources/segyloader.h"
#include "widgets/pictureexport.h"
#include "widgets/waitcursor.h"

#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <QStatusBar>

static const char pictureFilter[] = "Images (*.jpg,*.jpeg,*.png,*.tif,*.bmp);;All files (*)";

/// Asks where to; empty when the user has changed his mind.
static QString askName(QWidget* parent, const char* title, const char* file, const char* filter)
{
    return QFileDialog::getSaveFileName(parent, title, QDir::homePath() + file, filter);
}

static void tell(QWidget* parent, const char* title, const QString& error)
{
    QMessageBox::critical(parent, title, error);
}

void MainWindow::print()
{
    if (!_display) return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setDocName(windowTitle());
    printer.setCreator("Seismic Display");
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted) return;
    _display->myCanvas()->hideStored();
    QString error;
    const QPixmap picture = printedDisplay(_display, printer.pageRect(QPrinter::DevicePixel).size());
    if (!printPicture(picture, &printer, &error)) tell(this, "Print Error", error);
    else if (printer.outputFileName().isEmpty()) statusBar()->showMessage("Printed on " + printer.printerName());
}

void MainWindow::exportPDF()
{
    const QString name = askName(this, "PDF Export File Name", "/meridune.pdf", "PDF Documents (*.pdf)");
    QString error;
    if (!name.isEmpty() && !savePdf(wholePicture(), name, &error)) tell(this, "PDF Export Error", error);
}

void MainWindow::exportSection()
{
    if (_displaylist.isEmpty() || _displaylist.first()->traceCount() < 1) {
        statusBar()->showMessage("There is no section to export yet.");
        return;
    }
    const SeismicDisplay& display = *_displaylist.first();
    std::vector<float> offsets;
    SectionContent content = sectionContent(display, presentScale(display), _fileName, _segyloader.get(), &offsets);
    const auto layout = [&](const SectionScale& scale) { return sectionPage(display, scale, int(content.side.size())); };
    SectionExportDialog dialog(presentScale(display), layout, this);
    if (dialog.exec() != QDialog::Accepted) return;
    const QString name = askName(this, "Section Export File Name", "/meridune-section.pdf",
                                 "PDF Documents (*.pdf);;SVG Pictures (*.svg)");
    if (name.isEmpty()) return;
    QString error;
    {
        WaitCursor wait;
        // Anew: what the display shows may have changed while the dialogs were open.
        content = sectionContent(display, dialog.scale(), _fileName, _segyloader.get(), &offsets);
        saveSection(layout(dialog.scale()), content, withSectionSuffix(name), &error);
    }
    if (!error.isEmpty()) tell(this, "Section Export Error", error);
}

/// A name with a format that can be written; another one is refused and asked for again. Empty when the user has
/// changed his mind.
static QString askPictureName(QWidget* parent, const char* title)
{
    for (;;) {
        const QString name = askName(parent, title, "/meridune.png", pictureFilter);
        QString error;
        if (name.isEmpty() || canWritePicture(withPictureSuffix(name), &error)) return name;
        tell(parent, "Image Format Error", error);
    }
}

void MainWindow::exportImage()
{
    const QString name = askPictureName(this, "Image Export File Name");
    QString error;
    if (!name.isEmpty() && !savePicture(wholePicture(), withPictureSuffix(name), &error))
        tell(this, "Image Export Error", error);
}

void MainWindow::exportScreen()
{
    // Taken before the dialog opens, so that the dialog isn't in the picture.
    const QPixmap picture = QGuiApplication::primaryScreen()->grabWindow(winId());
    const QString name = askPictureName(this, "Snap Shot File Name");
    QString error;
    if (!name.isEmpty() && !savePicture(picture, withPictureSuffix(name), &error))
        tell(this, "Snap Shot Error", error);
}
