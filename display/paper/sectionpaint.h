/// Draws a section with its axes and labels.
#ifndef SECTIONPAINT_H
#define SECTIONPAINT_H

#include "display/colors/colorstrip.h"
#include "display/paper/sectionpage.h"
#include "display/raster/traceraster.h"

#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

class QPainter;

/// Device units a mm: sections are drawn in whole hundredths, which keeps documents small and exact.
constexpr int sectionUnits = 100;
/// The device's resolution in dots an inch that this stands for.
constexpr int sectionResolution = 2540;

/// What stands on the page beside the geometry.
struct SectionContent {
    RasterParm raster;        ///< traces and their scaling; what it points to is lent, its maps are not used
    QString title;            ///< above the section
    QString keyName;          ///< of the trace labels
    QStringList traceLabels;  ///< one a column from the left, empty for none
    int labelStep = 1;        ///< wanted columns from one label to the next
    bool hasTimeLines = false;
    std::vector<std::pair<QString, QString>> side;  ///< name and text of each line of the side label
    ColorStrip strip;                               ///< painted where the page has room for it
};

/// Cuts texts of the side label into lines that fit its column; a further line has no name.
std::vector<std::pair<QString, QString>> foldedSide(const std::vector<std::pair<QString, QString>>& side);

/// Dots an inch of the picture of a colour display: 200, less where the picture would pass 24 million pixels.
double sectionImageDpi(const SectionPage& page);

/// Paints on a device of sectionResolution: colours as one picture, wiggles as a path and positive lobes as a filled
/// path a trace. The page must be valid.
void paintSection(QPainter* painter, const SectionPage& page, const SectionContent& content);

#endif
