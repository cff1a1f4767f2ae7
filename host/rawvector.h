/// Memory for large arrays that are filled at once.
#ifndef RAWVECTOR_H
#define RAWVECTOR_H

#include <cstddef>
#include <memory>
#include <new>
#include <utility>
#include <vector>

/// Memory of operator new. Large pieces get large pages where the system has them: the first touch of a small page
/// costs as much as reading its samples from a file that is in memory. Throws std::bad_alloc.
void* allocateRaw(size_t nBytes);

/// Elements of a vector without a value stay as the memory has them, so that growing doesn't write all of it once
/// before it is filled.
template <class T>
struct RawAllocator {
    using value_type = T;

    RawAllocator() = default;
    template <class U>
    RawAllocator(const RawAllocator<U>&)
    {
    }
    T* allocate(size_t n)
    {
        if (n > size_t(-1) / sizeof(T)) throw std::bad_array_new_length();
        return static_cast<T*>(allocateRaw(n * sizeof(T)));
    }
    void deallocate(T* p, size_t) { ::operator delete(p); }
    template <class U>
    void construct(U* p)
    {
        ::new (static_cast<void*>(p)) U;
    }
    template <class U, class... Arguments>
    void construct(U* p, Arguments&&... arguments)
    {
        ::new (static_cast<void*>(p)) U(std::forward<Arguments>(arguments)...);
    }
    bool operator==(const RawAllocator&) const { return true; }
};

template <class T>
using RawVector = std::vector<T, RawAllocator<T>>;

#endif
