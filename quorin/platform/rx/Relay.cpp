#include "quorin/platform/rx/Relay.hpp"

#include <new>
#include <utility>

namespace quorin::rx {

Relay::Relay(AnyObserver observer) : observer_(std::move(observer)) {}

void Relay::put(AnyEvent event) {
    const std::lock_guard lock(mutex_);
    events_.push_back(std::move(event));
}

void Relay::deliverOne() {
    AnyEvent event;
    bool isDelivered = true;
    std::unique_lock lock(mutex_);
    ++due_;
    if (isDelivering_) return;
    isDelivering_ = true;
    for (; due_ > 0 && !events_.empty(); --due_) {
        event = std::move(events_.front());
        events_.pop_front();
        lock.unlock();
        isDelivered = observer_.trySend(event) && isDelivered;
        event = {};
        lock.lock();
    }
    due_ = 0;
    isDelivering_ = false;
    lock.unlock();
    if (!isDelivered) throw std::bad_alloc();
}

}  // namespace quorin::rx
