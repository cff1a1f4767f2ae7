#include "sources/segyheaderreader.h"

#include "sources/segyrecords.h"

#include <algorithm>
#include <cstring>

constexpr int64_t scatteredRecordBytes = 16384;
constexpr int64_t blockBytes = 1 << 20;
constexpr int64_t readsUnderWay = 256;

SegyHeaderReader::SegyHeaderReader(const ByteSource& source, int64_t recordBytes)
    : _source(source), _recordBytes(recordBytes), _isScattered(isScattered(recordBytes))
{
    _block.resize(_isScattered ? size_t(segyTraceHeaderBytes)
                               : size_t(std::clamp(source.size(), int64_t(segyTraceHeaderBytes), blockBytes)));
    if (_isScattered) _source.expectScattered(true);
}

bool SegyHeaderReader::isScattered(int64_t recordBytes)
{
    return recordBytes >= scatteredRecordBytes;
}

SegyHeaderReader::~SegyHeaderReader()
{
    if (_isScattered) _source.expectScattered(false);
}

const unsigned char* SegyHeaderReader::header(int64_t offset, int* nPresent, std::string* error)
{
    return _isScattered ? single(offset, nPresent, error) : fromBlock(offset, nPresent, error);
}

const unsigned char* SegyHeaderReader::fromBlock(int64_t offset, int* nPresent, std::string* error)
{
    const bool isInside = offset >= _blockStart && offset + segyTraceHeaderBytes <= _blockStart + _blockBytes;
    if (!isInside) {
        const int64_t got = _source.read(offset, _block.size(), _block.data(), error);
        _blockStart = offset;
        _blockBytes = std::max(int64_t(0), got);
        if (got < 0) {
            *nPresent = -1;
            return _block.data();
        }
        if (got < segyTraceHeaderBytes) {
            std::memset(_block.data() + got, 0, size_t(segyTraceHeaderBytes - got));
            *nPresent = int(got);
            return _block.data();
        }
    }
    *nPresent = segyTraceHeaderBytes;
    return _block.data() + (offset - _blockStart);
}

const unsigned char* SegyHeaderReader::single(int64_t offset, int* nPresent, std::string* error)
{
    // A read ahead of each header only starts the transfer, so that the disk always has many to serve.
    const int64_t horizon = std::min(offset + readsUnderWay * _recordBytes, _source.size());
    for (_announced = std::max(_announced, offset); _announced < horizon; _announced += _recordBytes)
        _source.willNeed(_announced, segyTraceHeaderBytes);
    const int64_t got = _source.read(offset, segyTraceHeaderBytes, _block.data(), error);
    *nPresent = got < 0 ? -1 : int(got);
    if (got >= 0 && got < segyTraceHeaderBytes) std::memset(_block.data() + got, 0, size_t(segyTraceHeaderBytes - got));
    return _block.data();
}
