/// Any bytes as a SEG-Y file through the loader: with and without an index, several ensembles, and back.
/// What it holds stays within what the file's size justifies.
#include "sources/segyloader.h"
#include "tests/fuzz/segymapfuzz.h"

#include <sys/mman.h>
#include <unistd.h>

/// A file without a place on the disk, and the name that opens it.
class BytesFile
{
public:
    BytesFile(const uint8_t* bytes, size_t n) : _descriptor(memfd_create("fuzz", 0))
    {
        if (_descriptor < 0 || write(_descriptor, bytes, n) != ssize_t(n)) std::abort();
    }
    ~BytesFile() { close(_descriptor); }
    QString name() const { return QString("/proc/self/fd/%1").arg(_descriptor); }

private:
    int _descriptor;
};

static void checkHeld(const SegyLoader& loader)
{
    if (loader.isOpen() && loader.bytesInUse() > loader.mostBytes()) std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t n)
{
    constexpr size_t largestInput = 200000;
    if (n < 2 || n > largestInput) return 0;
    static const int samples[] = {0, 0, 1, 10000000};
    const BytesFile file(bytes + 2, n - 2);
    SilentReport report;
    SegyLoader loader(1, file.name(), 0, bytes[1] % 12, bytes[0] >> 4 & 1, bytes[1] / 16 % 7, bytes[0] & 1, 1, 1, 1,
                      samples[bytes[0] >> 2 & 3], 100000, 2.0f, 0, bytes[0] >> 1 & 1, true, &report);
    const bool isOpen = loader.openFiles() && loader.buildAskedIndex();
    checkHeld(loader);
    if (!isOpen) return 0;
    loader.initBuild();
    for (int i = 0; i < 5; ++i) {
        const SegyLoader::Place before = loader.place();
        const bool isLoaded = loader.loadNextEnsemble(1);
        checkHeld(loader);
        if (!isLoaded && loader.place().position != before.position) std::abort();
        if (!isLoaded || loader.numTraces() == 0) break;
    }
    loader.reloadEnsemble();
    loader.loadLastEnsemble(1);
    loader.seekEnsemble(0);
    checkHeld(loader);
    return 0;
}
