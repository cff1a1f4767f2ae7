/// Header lists of datasets, each known by a handle above 0. Positions count from 1.
#ifndef HDR_H
#define HDR_H

#include <string>

/// Makes an empty header list. Returns its handle.
int hdr_setup_();
/// Frees the list of a handle; an unknown handle is ignored.
void hdr_release_(int handle);
/// What the list says of a name (compared without trailing blanks). *status is 0 when the word
/// exists, else 1 and the other targets stay. *position counts from 1, *length in 4-byte cells.
void hdr_naminfo__(int handle, const char* name, std::string* description, int* length, int* format, int* position,
                   int* status);
/// What the list says of the word that begins at a position. *name is padded to eight characters.
/// *status is 0 when a word begins there, else 1 and the other targets stay.
void hdr_indinfo_(int handle, int position, std::string* name, std::string* description, int* length, int* format,
                  int* status);
/// Adds a standard word behind the others. Returns 0, or 1 for an unknown handle or name; a word that
/// exists stays.
int hdr_std_add_(int handle, const char* name);
/// Adds a word at a position, which must lie behind all others. Returns 0, or 1 when it can't.
int hdr_add_(int handle, const char* name, const char* description, int position, int length, int format);

#endif
