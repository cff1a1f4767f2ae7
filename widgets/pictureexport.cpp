#include "widgets/pictureexport.h"

#include <QFile>
#include <QFileInfo>
#include <QImageWriter>
#include <QPainter>
#include <QPrinter>
#include <QSaveFile>

QString withPictureSuffix(const QString& name)
{
    return QFileInfo(name).fileName().contains('.') ? name : name + ".png";
}

static bool fail(QString* error, const QString& name, const QString& reason)
{
    *error = QString("Cannot write file %1:\n%2.").arg(name, reason);
    return false;
}

bool savePicture(const QPixmap& picture, const QString& name, QString* error)
{
    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly)) return fail(error, name, file.errorString());
    QImageWriter writer(&file, QFileInfo(name).suffix().toLower().toLatin1());
    if (!writer.write(picture.toImage())) return fail(error, name, writer.errorString());
    return file.commit() || fail(error, name, file.errorString());
}

QRect fittedRect(const QSize& picture, const QRect& page)
{
    return QRect(page.topLeft(), picture.scaled(page.size(), Qt::KeepAspectRatio));
}

static bool drawPage(const QPixmap& picture, QPrinter* printer)
{
    QPainter painter;
    if (!painter.begin(printer)) return false;
    const QRect page(QPoint(0, 0), printer->pageRect(QPrinter::DevicePixel).toRect().size());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(fittedRect(picture.size(), page), picture);
    return painter.end();
}

bool savePdf(const QPixmap& picture, const QString& name, QString* error)
{
    // The printer writes by name, so it gets one beside the target, which is then put in its place.
    const QString part = name + ".part";
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(part);
    printer.setResolution(72);
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setCreator("Seismic Display");
    const bool isDrawn = drawPage(picture, &printer);
    if (!isDrawn || !QFile::exists(part)) {
        QFile::remove(part);
        return fail(error, name, "the document could not be written");
    }
    QFile::remove(name);
    QFile file(part);
    return file.rename(name) || fail(error, name, file.errorString());
}

void printPicture(const QPixmap& picture, QPrinter* printer)
{
    drawPage(picture, printer);
}
