/// The line under a picture, put into the footer of its plot.
#ifndef PICTUREFOOTER_H
#define PICTUREFOOTER_H

#include "display/pictureline.h"

#include <QRectF>

class QwtPlot;
struct Polarity;

/// The keys of the traces that a view shows of n, what is done to them, and what is said of their polarity.
PictureLine pictureLineOf(const HeaderAxis& axis, const QRectF& view, int n, const SeismicPlot& plot,
                          const QString& overlayRecord, const Polarity& polarity);

/// Shows the line as far as it has room, and all of it in a tip; null shows none. One line high whatever it says, so
/// that the canvas keeps its size.
void showFooter(QwtPlot* plot, const PictureLine* line);

#endif
