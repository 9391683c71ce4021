#include "ScarceMemory.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <new>

#include <dlfcn.h>

namespace {

bool counted = false;
long allocations = 0;
long goodAllocations = 0;
long badAllocations = 0;

bool Refused()
{
    if (!counted)
        return false;
    const long number = allocations++;
    return number >= goodAllocations && number - goodAllocations < badAllocations;
}

/// What stands behind a function of this program: the sanitizer's or the C library's.
template <class Function>
Function Next(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

void* Allocate(std::size_t size)
{
    if (void* const memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

} // namespace

#define ZYN_INTERPOSED extern "C" __attribute__((visibility("default")))

ZYN_INTERPOSED void* malloc(std::size_t size)
{
    static const auto next = Next<void* (*)(std::size_t)>("malloc");
    if (!Refused())
        return next(size);
    errno = ENOMEM;
    return nullptr;
}

ZYN_INTERPOSED void* calloc(std::size_t count, std::size_t size)
{
    static const auto next = Next<void* (*)(std::size_t, std::size_t)>("calloc");
    if (!Refused())
        return next(count, size);
    errno = ENOMEM;
    return nullptr;
}

ZYN_INTERPOSED void* realloc(void* memory, std::size_t size)
{
    static const auto next = Next<void* (*)(void*, std::size_t)>("realloc");
    if (!Refused())
        return next(memory, size);
    errno = ENOMEM;
    return nullptr;
}

void* operator new(std::size_t size)
{
    return Allocate(size);
}
void* operator new[](std::size_t size)
{
    return Allocate(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return std::malloc(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return std::malloc(size);
}
void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace ZYN::ScarceMemory {

void Start(long good, Refusal refusal)
{
    allocations = 0;
    goodAllocations = good;
    badAllocations = refusal == Once ? 1 : LONG_MAX;
    counted = true;
}

long Stop()
{
    counted = false;
    return allocations;
}

} // namespace ZYN::ScarceMemory
