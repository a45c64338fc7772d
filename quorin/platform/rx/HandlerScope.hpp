#pragma once

namespace quorin::rx {

/// Stands on the stack of a thread while it runs a handler. A thread inside a handler must not wait for the delivery of
/// another thread, which may in turn be waiting for this one.
class HandlerScope {
public:
    HandlerScope();
    ~HandlerScope();
    HandlerScope(const HandlerScope&) = delete;
    HandlerScope& operator=(const HandlerScope&) = delete;

    /// Whether the calling thread is inside a handler of any stream.
    static bool isInside();
};

}  // namespace quorin::rx
