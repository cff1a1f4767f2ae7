/// Small helpers of the kernels that may be called in place.
#ifndef SCRATCH_H
#define SCRATCH_H

#include <cstddef>
#include <cstdint>
#include <vector>

/// True if the arrays share a float.
inline bool overlap(const float* a, size_t nA, const float* b, size_t nB)
{
    const auto startA = reinterpret_cast<uintptr_t>(a), startB = reinterpret_cast<uintptr_t>(b);
    return startA < startB + nB * sizeof(float) && startB < startA + nA * sizeof(float);
}

/// Makes room for n elements without ever giving any back; returns the first.
template <class T, class Allocator>
inline T* atLeast(std::vector<T, Allocator>* buffer, size_t n)
{
    if (buffer->size() < n) buffer->resize(n);
    return buffer->data();
}

#endif
