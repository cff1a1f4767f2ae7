/// The 240 bytes of a trace header as text, in five ways.
#ifndef SEGYHEADERTEXT_H
#define SEGYHEADERTEXT_H

#include <QString>

/// All take 240 bytes as segyData2 gives them: fields up to byte 196 in machine order, the others as in the file.
/// Bytes are counted from 1 in the text. Columns are aligned for a font of one width.

/// One line a SEG-Y field: its byte, its name and its value.
QString buildStandardHeader(const void* header);
/// Each 2 bytes as signed and unsigned integer, in both byte orders.
QString buildShortHeader(const void* header);
/// Each 4 bytes as signed and unsigned integer, in both byte orders.
QString buildIntegerHeader(const void* header);
/// Each 4 bytes as IEEE and as IBM floating point, in both byte orders.
QString buildFloatHeader(const void* header);
/// Each byte as a character; a point where it has none.
QString buildAsciiHeader(const void* header);

#endif
