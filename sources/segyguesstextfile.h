/// What a plain text file seems to be, where a SEG-Y file was expected.
#ifndef SEGYGUESSTEXTFILE_H
#define SEGYGUESSTEXTFILE_H

#include <string>

/// Looks at the begin of a file. Gives words that fit behind "This is", such as "a text file: SPS receiver records";
/// empty for what is no text: a reel header always holds bytes that no text has, and no file is text without a line.
std::string textFileKind(const std::string& begin);

#endif
