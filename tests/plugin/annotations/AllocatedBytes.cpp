// The program's own operator new, which counts.
#include "AllocatedBytes.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace
{

std::atomic<std::uint64_t> theBytes = 0;

} // namespace

std::uint64_t annotationtest::allocatedBytes()
{
    return theBytes;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    theBytes += size;
    return std::malloc(size > 0 ? size : 1);
}

void* operator new[](std::size_t size, const std::nothrow_t& nothrow) noexcept
{
    return operator new(size, nothrow);
}

void* operator new(std::size_t size)
{
    if (void* memory = operator new(size, std::nothrow))
        return memory;
    throw std::bad_alloc();
}

void* operator new[](std::size_t size)
{
    return operator new(size);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}
