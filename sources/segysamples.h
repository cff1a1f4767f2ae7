/// SEG-Y sample formats: what a sample's bytes mean.
#ifndef SEGYSAMPLES_H
#define SEGYSAMPLES_H

#include <vector>

/// Format codes of the reel header. 6 is this system's own number for one-byte integers.
enum SegyFormat {
    SegyIbm = 1,
    SegyInteger4 = 2,
    SegyInteger2 = 3,
    SegyIntegerGain = 4,
    SegyIeee = 5,
    SegyInteger1 = 6
};

/// Bytes of a sample: 2 for code 3, 1 for code 6, 4 for any other.
int segySampleBytes(int format);

/// Turns count samples in machine byte order into IEEE floats in the same place.
///
/// @param data          room for count floats
/// @param weightFactor  of the trace: integers of one and two bytes are divided by 2 to this power
/// @param work          work space, grown as needed
///
/// An unknown code is taken as IEEE. Of a code 4 sample the second half is a gain, and it is squared, not an
/// exponent.
void convertSegySamples(int format, int weightFactor, void* data, int count, std::vector<char>* work);

#endif
