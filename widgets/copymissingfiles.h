/// Fills a user's folder with files that came with the program.
#ifndef COPYMISSINGFILES_H
#define COPYMISSINGFILES_H

#include <QString>

/// Copies each file of one folder (a resource folder, or a real one; no sub-folders) that the other lacks;
/// files that are there stay as they are. The copies can be written to. Makes the target folder where it is
/// missing. Returns the number of files copied, or -1 if one could not be.
int copyMissingFiles(const QString& from, const QString& to);

/// The same for files that nobody edits, such as help pages: those that are there with other bytes are replaced,
/// and the folder's sub-folders go along.
int refreshFiles(const QString& from, const QString& to);

#endif
