#include "host/rawvector.h"

#include <cstdint>
#include <sys/mman.h>

constexpr uintptr_t largePage = uintptr_t(2) << 20;

void* allocateRaw(size_t nBytes)
{
    void* const p = ::operator new(nBytes);
    const uintptr_t first = (reinterpret_cast<uintptr_t>(p) + largePage - 1) & ~(largePage - 1);
    const uintptr_t end = (reinterpret_cast<uintptr_t>(p) + nBytes) & ~(largePage - 1);
    // Only asked for: where it can't be had, all works as before.
    if (nBytes >= 2 * largePage && end > first)
        (void)::madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE);
    return p;
}
