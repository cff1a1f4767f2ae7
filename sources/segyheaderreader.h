/// Trace headers out of a file, without the samples between them where these are long.
#ifndef SEGYHEADERREADER_H
#define SEGYHEADERREADER_H

#include "sources/bytesource.h"

/// Reads headers at rising positions: short records in large blocks, long ones header by header with many
/// reads under way. One object a thread.
class SegyHeaderReader
{
public:
    /// @param source       lent
    /// @param recordBytes  length of a usual trace record; headers are expected that far apart
    SegyHeaderReader(const ByteSource& source, int64_t recordBytes);
    ~SegyHeaderReader();
    /// True for records so long that only their headers are read.
    static bool isScattered(int64_t recordBytes);
    SegyHeaderReader(const SegyHeaderReader&) = delete;
    SegyHeaderReader& operator=(const SegyHeaderReader&) = delete;

    /// The 240 bytes at a position, zeros behind the end of the file; valid until the next call. *nPresent is
    /// the count of bytes that the file has there, 0 at its end, -1 with *error on failure.
    const unsigned char* header(int64_t offset, int* nPresent, std::string* error);

private:
    const unsigned char* fromBlock(int64_t offset, int* nPresent, std::string* error);
    const unsigned char* single(int64_t offset, int* nPresent, std::string* error);

    const ByteSource& _source;
    int64_t _recordBytes;
    bool _isScattered;
    std::vector<unsigned char> _block;
    int64_t _blockStart = 0;
    int64_t _blockBytes = 0;
    int64_t _announced = 0;  // headers below this position are under way
};

#endif
