#include "widgets/pictureexport.h"

#include "widgets/wholefile.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageWriter>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>

QString withPictureSuffix(const QString& name)
{
    return QFileInfo(name).fileName().contains('.') ? name : name + ".png";
}

static QByteArray formatOf(const QString& name)
{
    return QFileInfo(name).suffix().toLower().toLatin1();
}

bool canWritePicture(const QString& name, QString* error)
{
    const QList<QByteArray> formats = QImageWriter::supportedImageFormats();
    if (formats.contains(formatOf(name))) return true;
    QStringList known;
    for (const QByteArray& format : formats) known.append('.' + QString::fromLatin1(format));
    return cannotWrite(name, "a picture can be written as " + known.join(", "), error);
}

bool savePicture(const QPixmap& picture, const QString& name, QString* error)
{
    if (!canWritePicture(name, error)) return false;
    QBuffer bytes;
    QImageWriter writer(&bytes, formatOf(name));
    if (!bytes.open(QIODevice::WriteOnly) || !writer.write(picture.toImage()))
        return cannotWrite(name, writer.errorString(), error);
    return writeWhole(name, bytes.data(), error);
}

QRect fittedRect(const QSize& picture, const QRect& page)
{
    return QRect(page.topLeft(), picture.scaled(page.size(), Qt::KeepAspectRatio));
}

static bool drawPage(const QPixmap& picture, QPaintDevice* device, const QSize& page)
{
    QPainter painter;
    if (!painter.begin(device)) return false;
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(fittedRect(picture.size(), QRect(QPoint(0, 0), page)), picture);
    return painter.end();
}

/// Made in memory, for a document that is written by name says nothing of a full disk.
static bool writePdf(const QPixmap& picture, const QPageLayout& layout, int resolution, const QString& title,
                     const QString& name, QString* error)
{
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    QPdfWriter writer(&bytes);
    writer.setResolution(resolution);
    writer.setPageLayout(layout);
    writer.setCreator("Seismic Display");
    writer.setTitle(title);
    if (!drawPage(picture, &writer, layout.paintRectPixels(resolution).size()) || !bytes.data().startsWith("%PDF-") ||
        !bytes.data().trimmed().endsWith("%%EOF"))
        return cannotWrite(name, "the document could not be made", error);
    return writeWhole(name, bytes.data(), error);
}

bool savePdf(const QPixmap& picture, const QString& name, QString* error)
{
    QPrinter page;  // its page is the one that the user's system has
    page.setOutputFormat(QPrinter::PdfFormat);
    page.setPageOrientation(QPageLayout::Landscape);
    return writePdf(picture, page.pageLayout(), 72, QString(), name, error);
}

bool printPicture(const QPixmap& picture, QPrinter* printer, QString* error)
{
    const QString name = printer->outputFileName();
    if (!name.isEmpty())
        return writePdf(picture, printer->pageLayout(), printer->resolution(), printer->docName(), name, error);
    if (drawPage(picture, printer, printer->pageRect(QPrinter::DevicePixel).toRect().size())) return true;
    *error = "The printer can't be used.";
    return false;
}
