// The database library's memory, taken by this program's `operator new`, so that it fails with the rest.
#include <malloc.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>

namespace quorin::faults {
namespace {

int sizeOf(void* memory) { return memory ? static_cast<int>(malloc_usable_size(memory)) : 0; }

void* take(int size) { return operator new(static_cast<std::size_t>(size), std::nothrow); }

void giveBack(void* memory) { operator delete(memory); }

void* takeAnother(void* memory, int size) {
    void* const other = take(size);
    if (!other) return nullptr;
    std::memcpy(other, memory, static_cast<std::size_t>(std::min(size, sizeOf(memory))));
    giveBack(memory);
    return other;
}

int rounded(int size) { return (size + 7) / 8 * 8; }

/// Before any other use of the library, which would settle its memory.
[[maybe_unused]] const int configured = [] {
    constexpr auto start = [](void*) { return SQLITE_OK; };
    constexpr auto end = [](void*) {};
    const sqlite3_mem_methods methods{take, giveBack, takeAnother, sizeOf, rounded, start, end, nullptr};
    return sqlite3_config(SQLITE_CONFIG_MALLOC, &methods);
}();

}  // namespace
}  // namespace quorin::faults
