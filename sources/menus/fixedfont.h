/// The font of header tables.
#ifndef FIXEDFONT_H
#define FIXEDFONT_H

#include <QFont>

/// "Courier", or where that is missing another one in which all characters are equally wide.
QFont fixedFont();

#endif
