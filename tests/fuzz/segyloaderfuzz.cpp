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
    if (loader.bytesInUse() > loader.mostBytes()) std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t n)
{
    constexpr size_t largestInput = 200000;
    if (n < 2 || n > largestInput) return 0;
    static const int samples[] = {0, 0, 1, 10000000};
    const BytesFile file(bytes + 2, n - 2);
    SilentReport report;
    SegyLoadParm parm;
    parm.files = file.name();
    parm.isort = bytes[1] % 12;
    parm.itype = bytes[0] >> 4 & 1;
    parm.iformat = bytes[1] / 16 % 7;
    parm.ivariable = bytes[0] & 1;
    parm.icscale = parm.iescale = 1;
    parm.nsamp = samples[bytes[0] >> 2 & 3];
    parm.maxtr = 100000;
    parm.srate = 2.0f;
    parm.indexbuilt = bytes[0] >> 1 & 1;
    const auto opened = SegyLoader::open(parm, &report);
    if (!opened) return 0;
    SegyLoader& loader = *opened;
    checkHeld(loader);
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
