/// The whole ensemble of a display on a page of its own, true to scale.
#ifndef SECTIONEXPORT_H
#define SECTIONEXPORT_H

#include "display/paper/sectionpaint.h"

#include <QString>

class EnsembleSource;
class SeismicDisplay;

/// Spacing of a section on paper.
struct SectionScale {
    double tracesPerCm = 0.0;
    double cmPerSecond = 0.0;
};

/// The spacing that the display shows at present.
SectionScale presentScale(const SeismicDisplay& display);

/// The layout of the display's ensemble at a scale.
SectionPage sectionPage(const SeismicDisplay& display, const SectionScale& scale, int nSideLines);

/// All that stands on the page.
/// @param file     name of the file, for the side label
/// @param source   where the data come from; may be null
/// @param offsets  room that the result may point into
SectionContent sectionContent(const SeismicDisplay& display, const SectionScale& scale, const QString& file,
                              const EnsembleSource* source, std::vector<float>* offsets);

/// The name with ".pdf" behind it if it has no suffix.
QString withSectionSuffix(const QString& name);

/// Writes a PDF or an SVG picture, as the name's suffix tells, whole or not at all. Returns true; false with *error
/// naming the file and the reason.
bool saveSection(const SectionPage& page, const SectionContent& content, const QString& name, QString* error);

#endif
