#include "quorin/platform/rx/Subscription.hpp"

#include "quorin/platform/rx/HandlerScope.hpp"
#include "quorin/platform/rx/Memory.hpp"

#include <utility>

namespace quorin::rx {

Subscription::Subscription(Handler handler) : handler_(std::make_shared<const Handler>(std::move(handler))) {}

bool Subscription::deliver(const AnyEvent& event) noexcept {
    const HandlerScope scope;
    SharedHandler handler = event.isTerminal ? takeHandler() : currentHandler();
    const bool isDelivered = !handler || hasMemoryFor([&] { (*handler)(event); });
    handler.reset();
    if (event.isTerminal) upstream_->dispose();
    return isDelivered;
}

void Subscription::close() { takeHandler(); }

bool Subscription::isClosed() const { return currentHandler() == nullptr; }

Subscription::SharedHandler Subscription::currentHandler() const {
    const std::lock_guard lock(mutex_);
    return handler_;
}

Subscription::SharedHandler Subscription::takeHandler() {
    const std::lock_guard lock(mutex_);
    return std::exchange(handler_, nullptr);
}

}  // namespace quorin::rx
