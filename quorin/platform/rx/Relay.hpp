#pragma once

#include "quorin/platform/rx/AnyObserver.hpp"

#include <cstddef>
#include <deque>
#include <mutex>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// The events on their way through an executor. Each task stands for one delivery; which event that is, is decided by
/// the order of arrival, and a task that meets a running delivery leaves its own to that one. So the subscriber gets
/// one event at a time and in order even where the executor has several threads.
class Relay {
public:
    explicit Relay(AnyObserver observer);

    /// Yields the event's number.
    std::size_t put(AnyEvent event);

    /// Takes an event back that has no task, the last one that was put, unless it is delivered by now.
    void takeBack(std::size_t number);

    /// Once for each event that was put. A `std::bad_alloc` where the memory of the handler ends.
    void deliverOne();

private:
    AnyObserver observer_;
    std::mutex mutex_;
    std::deque<AnyEvent> events_;
    std::size_t taken_ = 0;  ///< events that have left the queue by delivery
    std::size_t due_ = 0;
    bool isDelivering_ = false;
};

}  // namespace quorin::rx

#pragma GCC visibility pop
