#include "quorin/platform/rx/Relay.hpp"

#include <utility>

namespace quorin::rx {

Relay::Relay(AnyObserver observer) : observer_(std::move(observer)) {}

void Relay::put(AnyEvent event) {
    const std::lock_guard lock(mutex_);
    events_.push_back(std::move(event));
}

void Relay::deliverOne() {
    AnyEvent event;
    std::unique_lock lock(mutex_);
    ++due_;
    if (isDelivering_) return;
    isDelivering_ = true;
    for (; due_ > 0 && !events_.empty(); --due_) {
        event = std::move(events_.front());
        events_.pop_front();
        lock.unlock();
        observer_.send(event);
        event = {};
        lock.lock();
    }
    due_ = 0;
    isDelivering_ = false;
}

}  // namespace quorin::rx
