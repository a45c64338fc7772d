#pragma once

#include "quorin/platform/rx/LateDisposable.hpp"

#include <functional>
#include <memory>
#include <mutex>

namespace quorin::rx {

/// One run of a stream for one handler. It is owned from above only: the source holds it through its observer, while
/// handles know it weakly, so that a handler may hold handles and streams without keeping itself alive.
class Subscription {
public:
    using Handler = std::function<void(const void* event)>;

    explicit Subscription(Handler handler);

    /// Calls the handler, unless the stream has ended or was disposed. A terminal event releases the handler after the
    /// call and then disposes what is upstream. The process ends when the handler throws.
    void deliver(const void* event, bool isTerminal) noexcept;

    /// No call begins after this one on the same thread. The handler is released, by a call under way when that is
    /// over.
    void close();

    bool isClosed() const;

    /// What to dispose at the end of the stream; disposed at once when the end has been.
    void setUpstream(const Disposable& upstream);

private:
    using SharedHandler = std::shared_ptr<const Handler>;

    SharedHandler currentHandler() const;
    SharedHandler takeHandler();

    mutable std::mutex mutex_;
    SharedHandler handler_;
    LateDisposable upstream_;
};

}  // namespace quorin::rx
