/// A file that appears under its name only when it is complete.
#ifndef OUTPUTFILE_H
#define OUTPUTFILE_H

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

/// CRC-32 of IEEE 802.3 (as zlib and zip have it) of more bytes, after `crc` of those before; 0 to begin.
uint32_t crc32Of(uint32_t crc, const void* data, size_t n);

/// Writes to a temporary name beside the file; commit() flushes to the disk and renames. Without a commit
/// the temporary file goes and an older file of the name stays as it was.
class OutputFile
{
public:
    explicit OutputFile(const std::string& name);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// After a failure further writes do nothing.
    void write(const void* data, size_t n);
    void write(std::string_view text) { write(text.data(), text.size()); }
    /// False with *error naming file and reason if anything failed since the file was opened.
    bool commit(std::string* error);

    int64_t size() const { return _size; }
    uint32_t crc() const { return _crc; }

private:
    void fail();

    std::string _name, _temporary;
    std::FILE* _file;
    int _failure = 0;  // errno of the first failure
    int64_t _size = 0;
    uint32_t _crc = 0;
};

#endif
