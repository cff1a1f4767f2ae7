/// What the menu record says of the data: written here, out of the source, and nowhere else.
#ifndef SOURCEMENU_H
#define SOURCEMENU_H

class EnsembleSource;
struct parmmenu;

/// The picture that new data start with: the display's defaults, room for the largest ensemble, the keys.
void setSourceDefaults(parmmenu* menu, const EnsembleSource& source);
/// The sort in force: its keys, for data and annotation, and the sort and the kind of the data in the run-time record.
void copySort(parmmenu* menu, const EnsembleSource& source);
/// Keys, domain and run-time record. A source that doesn't say its domain keeps that of the menu.
void copySource(parmmenu* menu, const EnsembleSource& source);

#endif
