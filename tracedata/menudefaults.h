/// The values that the display starts with when no flow menu gives others.
#ifndef MENUDEFAULTS_H
#define MENUDEFAULTS_H

struct parmmenu;

/// Writes the display's defaults. Fields that choose the file and how to read it keep their values.
void setDisplayDefaults(parmmenu* menu);

#endif
