/// The header list of the running flow: which words a trace header has, held in memory.
///
/// Positions count from 0 here, words of two and more cells take that many positions. A name is
/// compared without its trailing blanks.
#ifndef STHEADER_H
#define STHEADER_H

/// Position of a word, -1 when the list has none of that name.
int stHdrIndex(const char* name);
/// 1 when the list has the word, else 0.
int stHdrExists(const char* name);
/// A HeaderFormat (standardwords.h); that of a 4-byte integer for an unknown name.
int stHdrFormat(const char* name);
/// Length in 4-byte cells; 1 for an unknown name.
int stHdrLength(const char* name);
/// Description; empty for an unknown name. Valid until the list changes.
const char* stHdrDesc(const char* name);
/// Name of the word that begins at a position, padded to eight characters; empty if none does.
/// Valid until the list changes.
const char* stHdrIndexName(int index);
/// Adds a standard word. Returns 0, or 1 when the name is no standard word; a word that exists stays.
int stHdrAddStd(const char* name);
/// Adds a word of `length` cells. Returns 0, or 1 when the length is below 1 or the name empty or
/// longer than eight characters; a word that exists stays.
int stHdrAdd(const char* name, const char* description, int length, int format);
/// Empties the list (a new flow, or a test).
void stHdrClear();

#endif
