/// The demo survey's traces as a SEG-Y file: revision 1, big-endian, IEEE samples, EBCDIC text.
#ifndef DEMOSEGY_H
#define DEMOSEGY_H

#include "trevia/demosamples.h"
#include "trevia/outputfile.h"

#include <array>
#include <string>
#include <vector>

constexpr int segyReelBytes = 3600, segyHeaderBytes = 240;

/// Trace sort codes of the binary header.
enum DemoSort { DemoAsRecorded = 1, DemoByCdp = 2, DemoStacked = 4 };

/// What one file holds.
struct DemoFile {
    std::string name;                ///< without folder
    std::vector<std::string> title;  ///< at most 36 lines of at most 76 characters for the text header
    int nSamples = DemoLine::sampleCount;
    DemoSort sort = DemoAsRecorded;
    std::vector<DemoTrace> traces;
    DemoSignal signal;
};

/// The 3600 bytes before the traces.
std::vector<uint8_t> demoReel(const DemoFile& file);
/// The 240 bytes of a trace's header; `rank` counts from 1 in file order. Coordinates and elevations are
/// in hundredths of a metre, offsets rounded to the metre, statics to the millisecond.
std::array<uint8_t, segyHeaderBytes> demoHeader(const DemoTrace& trace, int rank, int nSamples);
/// Samples as the file holds them, 4 bytes each.
void putBigEndian(const float* samples, int n, uint8_t* bytes);

/// Writes all traces with noise of the standard deviation given, drawn trace by trace in file order. The
/// caller commits.
void writeDemoFile(const DemoFile& file, double noiseDeviation, OutputFile* out);

#endif
