/// The practical limits: each function does, in a plain loop, the same work as one of our kernels, and
/// gives the same sums. A figure of ours is the ratio of its time to that of its limit.
#ifndef LIMITS_H
#define LIMITS_H

#include <cstddef>

/// Copies nBytes: what this machine's memory gives.
void plainCopy(void* to, const void* from, size_t nBytes);

#endif
