#pragma once

#include "quorin/platform/rx/AnyEvent.hpp"
#include "quorin/platform/rx/LateDisposable.hpp"

#include <functional>
#include <memory>
#include <mutex>

namespace quorin::rx {

/// One run of a stream for one handler. It is owned from above only: the source holds it through its observer, while
/// handles know it weakly, so that a handler may hold handles and streams without keeping itself alive.
class Subscription {
public:
    using Handler = std::function<void(const AnyEvent&)>;

    explicit Subscription(Handler handler);

    /// Calls the handler, unless the stream has ended or was disposed. A terminal event releases the handler after the
    /// call and then disposes what is upstream. False where the handler's memory ends, which is for the sender to tell;
    /// the process ends when the handler throws anything but a `std::bad_alloc`.
    bool deliver(const AnyEvent& event) noexcept;

    /// No call begins after this one on the same thread. The handler is released, by a call under way when that is
    /// over.
    void close();

    bool isClosed() const;

    /// Where to put what is to be disposed at the end of the stream.
    const std::shared_ptr<LateDisposable>& upstream() const { return upstream_; }

private:
    using SharedHandler = std::shared_ptr<const Handler>;

    SharedHandler currentHandler() const;
    SharedHandler takeHandler();

    mutable std::mutex mutex_;
    SharedHandler handler_;
    const std::shared_ptr<LateDisposable> upstream_ = std::make_shared<LateDisposable>();
};

}  // namespace quorin::rx
