#include "widgets/helpbrowser.h"

#include <QImage>

HelpBrowser::HelpBrowser(QWidget* parent) : QTextBrowser(parent) {}

QVariant HelpBrowser::loadResource(int type, const QUrl& name)
{
    const QUrl file = source().resolved(name);
    if (type != QTextDocument::ImageResource || !file.isLocalFile()) return QTextBrowser::loadResource(type, name);
    QImage image(file.toLocalFile());
    if (image.isNull()) return QTextBrowser::loadResource(type, name);
    const qreal ratio = devicePixelRatioF();
    const int most = qRound(widestPicture * ratio);
    if (image.width() > most)
        image = image.scaledToWidth(most, Qt::SmoothTransformation);
    else if (ratio != 1.0)
        image = image.scaledToWidth(qRound(image.width() * ratio), Qt::SmoothTransformation);
    image.setDevicePixelRatio(ratio);
    return image;
}
