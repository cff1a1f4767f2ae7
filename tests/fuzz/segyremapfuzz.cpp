/// Any text as a remap file, applied to any header: the first 240 bytes are the header, the rest the file.
#include "sources/segyheader.h"

#include <cstdint>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t n)
{
    int raw[60] = {}, record[60] = {}, words[60];
    const size_t nHeader = std::min(n, sizeof raw);
    if (n == 0) return 0;
    std::memcpy(raw, bytes, nHeader);
    std::memcpy(record, bytes, nHeader);
    const QByteArray text(reinterpret_cast<const char*>(bytes) + nHeader, int(std::min<size_t>(n - nHeader, 1 << 16)));
    const SegyRemapTable table = remapTableFromText(text);
    SegyHeader header(record, words, 60);
    header.setTreviaVersion(1);
    header.setSegyRawHeader(raw);
    for (int iswap : {0, 1}) {
        header.convertSegyToOrvin();
        header.performRemap(table, iswap);
    }
    // What is written reads back as what was usable.
    if (!(remapTableToText(remapTableFromText(remapTableToText(table))) == remapTableToText(table))) __builtin_trap();
    return 0;
}
