#include "trevia/outputfile.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <unistd.h>

static constexpr std::array<uint32_t, 256> makeCrcTable()
{
    std::array<uint32_t, 256> table = {};
    for (uint32_t i = 0; i < 256; ++i) {
        uint32_t c = i;
        for (int bit = 0; bit < 8; ++bit) c = c & 1 ? 0xedb88320u ^ c >> 1 : c >> 1;
        table[i] = c;
    }
    return table;
}

uint32_t crc32Of(uint32_t crc, const void* data, size_t n)
{
    static constexpr std::array<uint32_t, 256> table = makeCrcTable();
    const auto* bytes = static_cast<const uint8_t*>(data);
    crc = ~crc;
    for (size_t i = 0; i < n; ++i) crc = table[(crc ^ bytes[i]) & 0xff] ^ crc >> 8;
    return ~crc;
}

OutputFile::OutputFile(const std::string& name)
    : _name(name), _temporary(name + ".part" + std::to_string(getpid())), _file(std::fopen(_temporary.c_str(), "wb"))
{
    if (!_file) fail();
}

OutputFile::~OutputFile()
{
    if (!_file) return;
    std::fclose(_file);
    std::remove(_temporary.c_str());
}

void OutputFile::fail()
{
    if (!_failure) _failure = errno ? errno : EIO;
}

void OutputFile::write(const void* data, size_t n)
{
    if (!_file || _failure) return;
    if (std::fwrite(data, 1, n, _file) != n) fail();
    _size += int64_t(n);
    _crc = crc32Of(_crc, data, n);
}

bool OutputFile::commit(std::string* error)
{
    if (_file) {
        if (std::fflush(_file) != 0 || fsync(fileno(_file)) != 0) fail();
        if (std::fclose(_file) != 0) fail();
        _file = nullptr;
        if (!_failure && std::rename(_temporary.c_str(), _name.c_str()) != 0) fail();
        if (_failure) std::remove(_temporary.c_str());
    }
    if (!_failure) return true;
    *error = _name + ": " + std::strerror(_failure);
    return false;
}
