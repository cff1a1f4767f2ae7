#include "sources/bytesource.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

void ByteSource::willNeed(int64_t, int64_t) const {}

void ByteSource::expectScattered(bool) const {}

int64_t MemorySource::read(int64_t offset, size_t n, void* out, std::string*) const
{
    if (offset < 0 || offset >= _size) return 0;
    const size_t available = std::min(n, size_t(_size - offset));
    std::memcpy(out, _bytes + offset, available);
    return int64_t(available);
}

FileSource::~FileSource()
{
    if (_descriptor >= 0) ::close(_descriptor);
}

bool FileSource::open(const std::string& path, std::string* error)
{
    // Not blocking, so that a pipe without a writer is refused instead of waited for.
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) {
        *error = std::strerror(errno);
        return false;
    }
    struct stat info = {};
    const int status = ::fstat(descriptor, &info);
    const bool isData = status == 0 && (S_ISREG(info.st_mode) || S_ISBLK(info.st_mode));
    if (!isData) {
        const bool isFolder = status == 0 && S_ISDIR(info.st_mode);
        *error = status != 0 ? std::strerror(errno) : isFolder ? std::strerror(EISDIR) : "Not a regular file";
        ::close(descriptor);
        return false;
    }
    if (_descriptor >= 0) ::close(_descriptor);
    _descriptor = descriptor;
    _size = S_ISBLK(info.st_mode) ? int64_t(::lseek(descriptor, 0, SEEK_END)) : int64_t(info.st_size);
    return true;
}

int64_t FileSource::read(int64_t offset, size_t n, void* out, std::string* error) const
{
    if (offset < 0) return 0;
    size_t count = 0;
    while (count < n) {
        const ssize_t got = ::pread(_descriptor, static_cast<char*>(out) + count, n - count, offset + int64_t(count));
        if (got == 0) break;
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) {
            *error = std::strerror(errno);
            return count > 0 ? int64_t(count) : -1;
        }
        count += size_t(got);
    }
    return int64_t(count);
}

void FileSource::willNeed(int64_t offset, int64_t n) const
{
    ::posix_fadvise(_descriptor, offset, n, POSIX_FADV_WILLNEED);
}

void FileSource::expectScattered(bool isScattered) const
{
    ::posix_fadvise(_descriptor, 0, 0, isScattered ? POSIX_FADV_RANDOM : POSIX_FADV_NORMAL);
}
