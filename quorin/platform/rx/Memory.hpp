#pragma once

#pragma GCC visibility push(default)

namespace quorin::rx {

/// Calls `work` with the context; false where its memory ends, which is a `std::bad_alloc`. Any other exception ends
/// the process.
bool hasMemoryFor(void (*work)(void* context), void* context) noexcept;

/// The same, for anything that can be called.
template <class Work>
bool hasMemoryFor(Work work) {
    return hasMemoryFor([](void* context) { (*static_cast<Work*>(context))(); }, &work);
}

}  // namespace quorin::rx

#pragma GCC visibility pop
