#include "quorin/platform/rx/Subscription.hpp"

#include "quorin/platform/rx/HandlerScope.hpp"

#include <utility>

namespace quorin::rx {

Subscription::Subscription(Handler handler) : handler_(std::make_shared<const Handler>(std::move(handler))) {}

void Subscription::deliver(const void* event, bool isTerminal) noexcept {
    const HandlerScope scope;
    if (const SharedHandler handler = isTerminal ? takeHandler() : currentHandler()) (*handler)(event);
    if (isTerminal) upstream_.dispose();
}

void Subscription::close() { takeHandler(); }

bool Subscription::isClosed() const { return currentHandler() == nullptr; }

void Subscription::setUpstream(const Disposable& upstream) { upstream_.put(upstream); }

Subscription::SharedHandler Subscription::currentHandler() const {
    const std::lock_guard lock(mutex_);
    return handler_;
}

Subscription::SharedHandler Subscription::takeHandler() {
    const std::lock_guard lock(mutex_);
    return std::exchange(handler_, nullptr);
}

}  // namespace quorin::rx
