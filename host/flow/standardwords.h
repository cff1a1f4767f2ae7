/// The standard words of a trace header, in the order of their positions.
#ifndef STANDARDWORDS_H
#define STANDARDWORDS_H

/// What a word holds; the numbers stand in header lists and files.
enum HeaderFormat { Integer2Format = 0, Integer4Format = 1, Float4Format = 2, Double8Format = 3 };

struct StandardWord {
    const char* name;  ///< eight characters, padded with blanks; the padding is part of the name
    HeaderFormat format;
    const char* description;
};

constexpr int standardWordCount = 60;
/// The first words are the host's own; the ones behind are added by tools.
constexpr int hostWordCount = 55;

/// The word at position 0 to standardWordCount - 1.
extern const StandardWord standardWords[standardWordCount];

/// Position of a name, blank padding included, counted from 0; -1 when there is none.
int standardWordIndex(const char* name);

#endif
