/// Byte order, IBM floating point and EBCDIC: what stands between a SEG-Y file and this machine.
///
/// All work in place, on any alignment; a count below 1 does nothing.
#ifndef BYTES_H
#define BYTES_H

#include <cstdint>

/// Reverses the bytes of `count` consecutive elements of `elementBytes` bytes. Below 2 bytes an
/// element there is nothing to do.
void endianSwap(void* data, int elementBytes, int64_t count);

/// Turns `count` IBM hexadecimal floats of 4 bytes, in machine order, into IEEE floats.
///
/// Their 24-bit fraction always fits, so all values from 2^-126 to the largest float are exact; smaller
/// ones are rounded to the nearest denormal, ties to even; larger ones become the largest float of
/// that sign. An IBM zero gives a zero of its sign. (IBM System/360 Principles of Operation, 1964.)
void ibmToIeee(void* data, int64_t count);

/// The reverse: IEEE floats into IBM ones, in machine order. A fraction that needs more than the 21 to
/// 24 bits that IBM's base 16 leaves is rounded to the nearest, ties away from 0; infinite and NaN
/// become the largest IBM value of their sign.
void ieeeToIbm(void* data, int64_t count);

/// Translates EBCDIC text, code page 037, to Latin-1, of which ASCII is the lower half. The table is
/// one to one over all 256 values, so that asciiToEbcdic gives the same bytes back.
void ebcdicToAscii(void* text, int64_t count);
void asciiToEbcdic(void* text, int64_t count);

/// True if the machine keeps the lowest byte first.
bool littleEndian();

#endif
