/// Pictures of widgets as files, documents and prints.
#ifndef PICTUREEXPORT_H
#define PICTUREEXPORT_H

#include <QPixmap>
#include <QRect>
#include <QString>

class QPrinter;

/// The name with ".png" behind it if it has no suffix.
QString withPictureSuffix(const QString& name);

/// Whether a picture can be written under this name; otherwise *error names the formats that can be.
bool canWritePicture(const QString& name, QString* error);

/// Writes a picture in the format that the name's suffix tells, whole or not at all. Returns true; false
/// with *error naming the file and the reason.
bool savePicture(const QPixmap& picture, const QString& name, QString* error);

/// Writes a picture as a PDF of one landscape page at 72 dots an inch, whole or not at all.
bool savePdf(const QPixmap& picture, const QString& name, QString* error);

/// Draws a picture on a printer's page, as large as it fits with its proportions kept. A print into a file is
/// written whole or not at all. Returns true; false with *error.
bool printPicture(const QPixmap& picture, QPrinter* printer, QString* error);

/// The largest rectangle of these proportions inside a page, at its top left.
QRect fittedRect(const QSize& picture, const QRect& page);

#endif
