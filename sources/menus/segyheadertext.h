/// The 240 bytes of a trace header as text, in five ways.
#ifndef SEGYHEADERTEXT_H
#define SEGYHEADERTEXT_H

#include <QString>

/// Bytes are counted from 1 in the text. Columns are aligned for a font of one width.

/// One line a SEG-Y field: its byte, its name and its value.
/// @param header  240 bytes as segyData2 gives them: fields up to byte 196 in machine order, the others as in the file
QString buildStandardHeader(const void* header);

/// The others take 240 bytes as they lie in the file. The plain columns are in the file's byte order, those with
/// "(swap)" in the other.

/// Each 2 bytes as signed and unsigned integer.
QString buildShortHeader(const void* bytes, bool isBigEndian);
/// Each 4 bytes as signed and unsigned integer.
QString buildIntegerHeader(const void* bytes, bool isBigEndian);
/// Each 4 bytes as IEEE and as IBM floating point.
QString buildFloatHeader(const void* bytes, bool isBigEndian);
/// Each byte as a character; a point where it has none.
QString buildAsciiHeader(const void* bytes, bool isBigEndian);

#endif
