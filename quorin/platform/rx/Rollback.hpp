#pragma once

#include <utility>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// Takes back what has begun, at the end of a scope that is left before `keep()`: by an exception.
template <class Undo>
class Rollback {
public:
    explicit Rollback(Undo undo) : undo_(std::move(undo)) {}
    ~Rollback() {
        if (!isKept_) undo_();
    }
    Rollback(const Rollback&) = delete;
    Rollback& operator=(const Rollback&) = delete;

    void keep() { isKept_ = true; }

private:
    Undo undo_;
    bool isKept_ = false;
};

}  // namespace quorin::rx

#pragma GCC visibility pop
