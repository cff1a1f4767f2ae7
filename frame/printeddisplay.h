/// A display as it goes on paper.
#ifndef PRINTEDDISPLAY_H
#define PRINTEDDISPLAY_H

#include <QPixmap>
#include <QSizeF>

class SeismicDisplay;

/// A display on white, laid out for a page of this shape: as wide as on the screen and as high as the page makes it,
/// twice as dense. A stored picture that is up keeps its own shape.
QPixmap printedDisplay(SeismicDisplay* display, const QSizeF& page);

#endif
