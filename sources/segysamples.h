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

/// Formats that no code of the reel names here; they are chosen by the user. 100 more than the standard's codes.
enum SegyLayoutFormat {
    SegyReal8 = 106,
    SegyInteger3 = 107,
    SegyInteger8 = 109,
    SegyUnsigned4 = 110,
    SegyUnsigned2 = 111,
    SegyUnsigned8 = 112,
    SegyUnsigned3 = 115,
    SegyUnsigned1 = 116
};

/// A format of those that the user alone can choose, as the menu names it.
struct SegyLayoutSample {
    int format;  ///< a SegyLayoutFormat
    const char* name;
};
const std::vector<SegyLayoutSample>& segyLayoutSamples();

/// Code of the menu's sample format choices 1 to 6; 0 for any other, which leaves it to the reel.
int segyFormatOfChoice(int choice);
/// Bytes of a sample: 2 for code 3, 1 for code 6, what its name says for a SegyLayoutFormat, 4 for any other.
int segySampleBytes(int format);

/// Turns count samples in machine byte order into IEEE floats in the same place.
///
/// @param data          room for count floats, and for count samples
/// @param weightFactor  of the trace: integers of one, two and three bytes are divided by 2 to this power
/// @param work          work space, grown as needed
///
/// An unknown code is taken as IEEE. Of a code 4 sample the second half is a gain, and it is squared, not an
/// exponent.
void convertSegySamples(int format, int weightFactor, void* data, int count, std::vector<char>* work);

#endif
