#include "benchmarks/allocations.h"

#include <malloc.h>

#include <cstdlib>
#include <new>

namespace canvas::bench {
namespace {

constinit std::uint64_t calls = 0;
constinit std::int64_t kept = 0;
constinit bool keeping = false;  // its price is not paid while times are taken

std::int64_t sizeOf(void* piece) noexcept { return static_cast<std::int64_t>(malloc_usable_size(piece)); }

void* take(std::size_t size) {
    void* const piece = std::malloc(size == 0 ? 1 : size);
    if (!piece) throw std::bad_alloc();
    ++calls;
    if (keeping) kept += sizeOf(piece);
    return piece;
}

void give(void* piece) noexcept {
    if (keeping && piece) kept -= sizeOf(piece);
    std::free(piece);
}

}  // namespace

std::uint64_t allocations() noexcept { return calls; }

KeptBytes::KeptBytes() noexcept {
    kept = 0;
    keeping = true;
}

KeptBytes::~KeptBytes() { keeping = false; }

std::int64_t KeptBytes::count() const noexcept { return kept; }

}  // namespace canvas::bench

// The array and nothrow forms of the standard library come here too.
void* operator new(std::size_t size) { return canvas::bench::take(size); }
void operator delete(void* piece) noexcept { canvas::bench::give(piece); }
void operator delete(void* piece, std::size_t) noexcept { canvas::bench::give(piece); }
