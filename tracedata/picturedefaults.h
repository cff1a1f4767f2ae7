/// The picture that every new set of data starts with.
#ifndef PICTUREDEFAULTS_H
#define PICTUREDEFAULTS_H

struct parmmenu;

/// Writes the fields that choose how data are shown: one screen of wiggles, scaled by trace, automatic
/// spacings and range. Fields that tell of the data, their keys and files keep their values.
void setPictureDefaults(parmmenu* menu);

#endif
