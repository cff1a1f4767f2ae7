/// The bytes of a file: the lowest layer of the readers.
#ifndef BYTESOURCE_H
#define BYTESOURCE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Bytes to read from: a file, or memory in tests and fuzzing. Any thread may read at any time.
class ByteSource
{
public:
    virtual ~ByteSource() = default;
    /// Bytes in the source when it was opened.
    virtual int64_t size() const = 0;
    /// Copies up to n bytes at offset to out. Returns their count, less than n only at the end, 0 at or
    /// behind it; -1 on failure, with *error as the system's text.
    virtual int64_t read(int64_t offset, size_t n, void* out, std::string* error) const = 0;
    /// Says which bytes will be read soon. A hint: may do nothing.
    virtual void willNeed(int64_t offset, int64_t n) const;
    /// Says that only small pieces far apart will be read (true), or everything in turn.
    virtual void expectScattered(bool isScattered) const;
};

/// Bytes that the caller owns, at least as long as this object lives.
class MemorySource : public ByteSource
{
public:
    MemorySource(const void* bytes, size_t n) : _bytes(static_cast<const char*>(bytes)), _size(int64_t(n)) {}
    int64_t size() const override { return _size; }
    int64_t read(int64_t offset, size_t n, void* out, std::string* error) const override;

private:
    const char* _bytes;
    int64_t _size;
};

/// A file on disk, by reads at positions. It is never mapped: a file cut under a map would kill the program.
class FileSource : public ByteSource
{
public:
    FileSource() = default;
    ~FileSource() override;
    FileSource(const FileSource&) = delete;
    FileSource& operator=(const FileSource&) = delete;

    /// Opens a regular file or disk. False with the system's text in *error.
    bool open(const std::string& path, std::string* error);
    int64_t size() const override { return _size; }
    int64_t read(int64_t offset, size_t n, void* out, std::string* error) const override;
    void willNeed(int64_t offset, int64_t n) const override;
    void expectScattered(bool isScattered) const override;

private:
    int _descriptor = -1;
    int64_t _size = 0;
};

#endif
