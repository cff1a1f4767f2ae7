/// The keys of the menu record: read and written here alone, where its plain integers become header words.
#ifndef MENUKEYS_H
#define MENUKEYS_H

#include "tracedata/wordnumber.h"

struct parmmenu;

/// Header words that a display shows.
struct HeaderKeys {
    WordFrom0 pri;      ///< primary annotation key
    WordFrom0 priReal;  ///< primary key of the data
    WordFrom0 sec;      ///< secondary annotation key
    WordFrom0 secReal;  ///< secondary key of the data
    /// Whether the keys of the data go by their own names; else by those of the annotation keys, for a SEG-Y file
    /// has no keys but those that the user reads it by.
    bool realHaveNames = true;
};

/// The keys that the record says.
HeaderKeys menuKeys(const parmmenu& menu);
/// Makes two words the keys of the data and of the annotation.
void setMenuKeys(parmmenu* menu, WordFrom1 pri, WordFrom1 sec);

#endif
