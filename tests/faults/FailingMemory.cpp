// All forms of `operator new` and `operator delete`: a sanitizer's own would not go together with half of them.
#include "tests/faults/FailingMemory.hpp"

#include <malloc.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace quorin::faults {
namespace {

/// How many allocations of this thread succeed before one fails; negative: all do.
thread_local long untilFailure = -1;

thread_local bool keepsFailing = false;
thread_local bool hasFailed = false;

thread_local constinit Taken taken{};
thread_local long held = 0;

void* allocate(std::size_t size, std::size_t alignment) noexcept {
    if (untilFailure == 0) {
        hasFailed = true;
        if (!keepsFailing) untilFailure = -1;
        return nullptr;
    }
    if (untilFailure > 0) --untilFailure;
    void* memory = nullptr;
    if (posix_memalign(&memory, alignment, size) != 0) return nullptr;
    const auto bytes = static_cast<long>(malloc_usable_size(memory));
    ++taken.allocations;
    taken.bytes += bytes;
    held += bytes;
    taken.peak = std::max(taken.peak, held);
    return memory;
}

void giveBack(void* memory) noexcept {
    held -= static_cast<long>(malloc_usable_size(memory));
    std::free(memory);
}

void* allocateOrThrow(std::size_t size, std::size_t alignment) {
    void* const memory = allocate(size, alignment);
    if (!memory) throw std::bad_alloc();
    return memory;
}

}  // namespace

void failAfter(long count, Then then) {
    untilFailure = count;
    keepsFailing = then == Then::fails;
    hasFailed = false;
}

bool stopFailing() {
    untilFailure = -1;
    return hasFailed;
}

Taken takenBy(const std::function<void()>& call) {
    taken = {};
    held = 0;
    call();
    taken.kept = held;
    return taken;
}

}  // namespace quorin::faults

using quorin::faults::allocate;
using quorin::faults::allocateOrThrow;
using quorin::faults::giveBack;

constexpr std::size_t usual = __STDCPP_DEFAULT_NEW_ALIGNMENT__;

void* operator new(std::size_t size) { return allocateOrThrow(size, usual); }
void* operator new[](std::size_t size) { return allocateOrThrow(size, usual); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate(size, usual); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return allocate(size, usual); }
void* operator new(std::size_t size, std::align_val_t alignment) {
    return allocateOrThrow(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    return allocateOrThrow(size, static_cast<std::size_t>(alignment));
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return allocate(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return allocate(size, static_cast<std::size_t>(alignment));
}

void operator delete(void* memory) noexcept { giveBack(memory); }
void operator delete[](void* memory) noexcept { giveBack(memory); }
void operator delete(void* memory, std::size_t) noexcept { giveBack(memory); }
void operator delete[](void* memory, std::size_t) noexcept { giveBack(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { giveBack(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { giveBack(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { giveBack(memory); }
void operator delete[](void* memory, std::align_val_t) noexcept { giveBack(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { giveBack(memory); }
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept { giveBack(memory); }
void operator delete(void* memory, std::align_val_t, const std::nothrow_t&) noexcept { giveBack(memory); }
void operator delete[](void* memory, std::align_val_t, const std::nothrow_t&) noexcept { giveBack(memory); }
