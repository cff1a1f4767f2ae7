/// Traces of variable length: map, sort and every trace.
#include "tests/fuzz/segymapfuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t n)
{
    fuzzMap(bytes, n, 1);
    return 0;
}
