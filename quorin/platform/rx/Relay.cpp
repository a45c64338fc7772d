#include "quorin/platform/rx/Relay.hpp"

#include <new>
#include <utility>

namespace quorin::rx {

Relay::Relay(AnyObserver observer) : observer_(std::move(observer)) {}

std::size_t Relay::put(AnyEvent event) {
    const std::lock_guard lock(mutex_);
    events_.push_back(std::move(event));
    return taken_ + events_.size();
}

void Relay::takeBack(std::size_t number) {
    const std::lock_guard lock(mutex_);
    if (!events_.empty() && number == taken_ + events_.size()) events_.pop_back();
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
        ++taken_;
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
