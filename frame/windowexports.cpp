#include "frame/windowexports.h"

#include "display/images/myqwtplotcanvas.h"
#include "display/seismicdisplay.h"
#include "frame/printeddisplay.h"
#include "frame/screenrow.h"
#include "frame/sectionexportdialog.h"
#include "widgets/pictureexport.h"
#include "widgets/waitcursor.h"

#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <QStatusBar>

static const char pictureFilter[] = "Images (*.jpg,*.jpeg,*.png,*.tif,*.bmp);;All files (*)";

WindowExports::WindowExports(QMainWindow* window, const ScreenRow* screens, std::function<SectionOrigin()> origin)
    : _window(window), _screens(screens), _origin(std::move(origin))
{
}

/// Asks where to; empty when the user has changed his mind.
QString WindowExports::askName(const char* title, const char* file, const char* filter) const
{
    return QFileDialog::getSaveFileName(_window, title, QDir::homePath() + file, filter);
}

void WindowExports::tell(const char* title, const QString& error) const
{
    QMessageBox::critical(_window, title, error);
}

/// The window as it stands: what the X server alone holds is painted first.
QPixmap WindowExports::wholePicture() const
{
    for (SeismicDisplay* display : *_screens->displays()) display->myCanvas()->hideStored();
    return _window->grab();
}

void WindowExports::print() const
{
    SeismicDisplay* display = _screens->lastScreen();
    if (!display) return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setDocName(_window->windowTitle());
    printer.setCreator("Seismic Display");
    QPrintDialog dialog(&printer, _window);
    if (dialog.exec() != QDialog::Accepted) return;
    display->myCanvas()->hideStored();
    QString error;
    const QPixmap picture = printedDisplay(display, printer.pageRect(QPrinter::DevicePixel).size());
    if (!printPicture(picture, &printer, &error))
        tell("Print Error", error);
    else if (printer.outputFileName().isEmpty())
        _window->statusBar()->showMessage("Printed on " + printer.printerName());
}

void WindowExports::exportPdf() const
{
    const QString name = askName("PDF Export File Name", "/meridune.pdf", "PDF Documents (*.pdf)");
    QString error;
    if (!name.isEmpty() && !savePdf(wholePicture(), name, &error)) tell("PDF Export Error", error);
}

void WindowExports::exportSection() const
{
    if (_screens->displays()->isEmpty() || _screens->displays()->first()->traceCount() < 1) {
        _window->statusBar()->showMessage("There is no section to export yet.");
        return;
    }
    const SeismicDisplay& display = *_screens->displays()->first();
    std::vector<float> offsets;
    const auto contentAt = [&](const SectionScale& scale) {
        const SectionOrigin origin = _origin();
        return sectionContent(display, scale, origin.file, origin.source, &offsets);
    };
    SectionContent content = contentAt(presentScale(display));
    const auto layout = [&](const SectionScale& scale) {
        return sectionPage(display, scale, int(content.side.size()));
    };
    SectionExportDialog dialog(presentScale(display), layout, _window);
    if (dialog.exec() != QDialog::Accepted) return;
    const QString name =
        askName("Section Export File Name", "/meridune-section.pdf", "PDF Documents (*.pdf);;SVG Pictures (*.svg)");
    if (name.isEmpty()) return;
    QString error;
    {
        WaitCursor wait;
        // Anew: what the display shows may have changed while the dialogs were open.
        content = contentAt(dialog.scale());
        saveSection(layout(dialog.scale()), content, withSectionSuffix(name), &error);
    }
    if (!error.isEmpty()) tell("Section Export Error", error);
}

/// A name with a format that can be written; another one is refused and asked for again. Empty when the user has
/// changed his mind.
QString WindowExports::askPictureName(const char* title) const
{
    for (;;) {
        QString name = askName(title, "/meridune.png", pictureFilter);
        QString error;
        if (name.isEmpty() || canWritePicture(withPictureSuffix(name), &error)) return name;
        tell("Image Format Error", error);
    }
}

void WindowExports::exportImage() const
{
    const QString name = askPictureName("Image Export File Name");
    QString error;
    if (!name.isEmpty() && !savePicture(wholePicture(), withPictureSuffix(name), &error))
        tell("Image Export Error", error);
}

void WindowExports::exportScreen() const
{
    // Taken before the dialog opens, so that the dialog isn't in the picture.
    const QPixmap picture = QGuiApplication::primaryScreen()->grabWindow(_window->winId());
    const QString name = askPictureName("Snap Shot File Name");
    QString error;
    if (!name.isEmpty() && !savePicture(picture, withPictureSuffix(name), &error)) tell("Snap Shot Error", error);
}
