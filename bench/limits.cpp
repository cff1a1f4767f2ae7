#include "bench/limits.h"

#include <cstring>

void plainCopy(void* to, const void* from, size_t nBytes)
{
    std::memcpy(to, from, nBytes);
}
