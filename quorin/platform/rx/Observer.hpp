#pragma once

#include "quorin/platform/rx/AnyObserver.hpp"
#include "quorin/platform/rx/Event.hpp"

#include <utility>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// What the source of a stream delivers into, on any thread, but one event at a time. Copies reach the same subscriber.
/// What is delivered after the end or after the subscriber left goes nowhere. Where the memory of a handler ends, who
/// delivers gets the `std::bad_alloc`.
template <class T>
class Observer {
public:
    /// An observer that reaches nobody.
    Observer() = default;

    explicit Observer(AnyObserver observer) : observer_(std::move(observer)) {}

    void next(T value) const { send(Event<T>::next(std::move(value))); }
    void fail(Error error) const { send(Event<T>::failed(std::move(error))); }
    void complete() const { send(Event<T>::completed()); }
    void send(const Event<T>& event) const { observer_.send(AnyEvent::lent(event)); }

    /// True when nothing more reaches the subscriber: the stream ended or was disposed.
    bool isDisposed() const { return observer_.isDisposed(); }

    /// For code that does not know the type; it sends `Event<T>` only.
    const AnyObserver& untyped() const { return observer_; }

private:
    AnyObserver observer_;
};

}  // namespace quorin::rx

#pragma GCC visibility pop
