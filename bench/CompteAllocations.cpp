#include "CompteAllocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {
std::atomic<long> allocations{0};
} // namespace

long AllocationsFaites() {
    return allocations.load(std::memory_order_relaxed);
}

// The replaced pair hands memory from malloc back to free: the compiler cannot tell.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
void* operator new(std::size_t taille) {
    allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* p = std::malloc(taille ? taille : 1)) return p;
    throw std::bad_alloc();
}
void operator delete(void* p) noexcept {
    std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
    std::free(p);
}
#pragma GCC diagnostic pop
