/// Which code the text header of a SEG-Y file is written in.
#ifndef SEGYGUESSTEXT_H
#define SEGYGUESSTEXT_H

#include <string>

enum class SegyTextKind { Ebcdic, Ascii, BlankEbcdic, BlankAscii, Nul, Unclear };

struct SegyTextGuess {
    SegyTextKind kind = SegyTextKind::Unclear;
    bool isSeg2 = false;      ///< keywords of a SEG-2 record, padded with NUL
    bool hasLetters = false;  ///< in EBCDIC or ASCII
    std::string evidence;     ///< counts of telling bytes
    /// What the text itself says of the samples, e.g. "Sample Format: MSDOS IEEE"; empty if nothing.
    std::string formatLine;
};

/// @param text  3200 bytes as they stand in the file
SegyTextGuess guessSegyText(const char* text);
/// A name for the panel: "EBCDIC", "ASCII", "blank (EBCDIC)" ...
const char* segyTextName(SegyTextKind kind);

#endif
