#pragma once

#include <memory>
#include <mutex>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin {

/// The current one of a row of immutable values: read by copying a pointer, replaced whole. The lock is held for that
/// copy and nothing else, so a reader waits for no more than another thread's copy of a pointer.
template <class T>
class Snapshot {
public:
    using Pointer = std::shared_ptr<const T>;

    /// Null while there is none.
    Pointer get() const {
        const std::lock_guard lock(mutex_);
        return current_;
    }

    void set(Pointer next) {
        const std::lock_guard lock(mutex_);
        current_.swap(next);
    }

    /// The current one, which is `next` when there was none.
    Pointer getOr(Pointer next) {
        const std::lock_guard lock(mutex_);
        if (!current_) current_.swap(next);
        return current_;
    }

private:
    mutable std::mutex mutex_;
    Pointer current_;
};

}  // namespace quorin

#pragma GCC visibility pop
