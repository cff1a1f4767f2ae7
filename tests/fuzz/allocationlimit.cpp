/// Counts what the program's own code holds, and ends it when that passes 512 MiB: an input must never make a
/// reader take memory that its size can't justify. Works in all builds: operator new is replaced, and the calls
/// of malloc and its kin are led here by the linker's --wrap.
#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <unistd.h>

extern "C" {
void* __real_malloc(size_t n);
void* __real_calloc(size_t count, size_t n);
void* __real_realloc(void* p, size_t n);
void __real_free(void* p);
}

static constexpr size_t mostBytes = size_t(512) << 20;
static std::atomic<size_t> heldBytes{0};

static void stop()
{
    static const char words[] = "allocationlimit: more than 512 MiB are held\n";
    if (write(STDERR_FILENO, words, sizeof words - 1) < 0) std::abort();
    std::abort();
}

/// Asked before the memory is taken: a claim alone is a fault, even where it is never touched.
static void ask(size_t n)
{
    if (n > mostBytes || heldBytes + n > mostBytes) stop();
}

static void* taken(void* p)
{
    if (p) heldBytes += malloc_usable_size(p);
    return p;
}

static void given(void* p)
{
    // What a library took before it was counted may be given back here.
    if (p) heldBytes -= std::min(heldBytes.load(), malloc_usable_size(p));
}

extern "C" void* __wrap_malloc(size_t n)
{
    ask(n);
    return taken(__real_malloc(n));
}

extern "C" void* __wrap_calloc(size_t count, size_t n)
{
    ask(n > 0 && count > mostBytes / n ? mostBytes + 1 : count * n);
    return taken(__real_calloc(count, n));
}

extern "C" void* __wrap_realloc(void* p, size_t n)
{
    ask(n);
    given(p);
    return taken(__real_realloc(p, n));
}

extern "C" void __wrap_free(void* p)
{
    given(p);
    __real_free(p);
}

void* operator new(size_t n)
{
    if (void* p = __wrap_malloc(n > 0 ? n : 1)) return p;
    throw std::bad_alloc();
}

void* operator new[](size_t n)
{
    return operator new(n);
}

// A sort takes its work space without exceptions, and gives it back by the plain delete.
void* operator new(size_t n, const std::nothrow_t&) noexcept
{
    return __wrap_malloc(n > 0 ? n : 1);
}

void* operator new[](size_t n, const std::nothrow_t& nothrow) noexcept
{
    return operator new(n, nothrow);
}

void operator delete(void* p) noexcept
{
    __wrap_free(p);
}

void operator delete[](void* p) noexcept
{
    __wrap_free(p);
}

void operator delete(void* p, size_t) noexcept
{
    __wrap_free(p);
}

void operator delete[](void* p, size_t) noexcept
{
    __wrap_free(p);
}
