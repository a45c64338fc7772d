#pragma once

#include "quorin/platform/rx/Broadcast.hpp"
#include "quorin/platform/rx/Observable.hpp"

#include <memory>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// A cell whose value can be read, assigned and followed, on any thread. Its destruction completes its streams.
template <class T>
class Variable {
public:
    explicit Variable(T initial) : cell_(AnyEvent::of(Event<T>::next(std::move(initial)))) {}
    ~Variable() { cell_.end(end_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

    /// Always the last one assigned, also while it is still being delivered.
    T value() const {
        const std::shared_ptr<const void> last = cell_.last();
        return **static_cast<const Event<T>*>(last.get());
    }

    /// Delivers to all subscribers before it returns, on the calling thread and also when the value is an equal one.
    /// Inside a handler, what is being delivered goes on first; only there, while another thread delivers this cell, it
    /// leaves the delivery to that thread and returns. A handler must not wait for another thread's assignment.
    ///
    /// A `std::bad_alloc` means that memory ended: before anything changed, or in a handler, and then the value is
    /// assigned and all other subscribers have it. `value()` tells.
    void assign(T value) { cell_.send(AnyEvent::of(Event<T>::next(std::move(value)))); }

    /// The value of the moment for each new subscriber, then each one assigned. After the cell's destruction the stream
    /// is its last value and completion.
    Observable<T> asObservable() const {
        return Observable<T>(
            [cell = cell_](const Observer<T>& observer) { return cell.subscribe(observer.untyped()); });
    }

private:
    Broadcast cell_;
    const AnyEvent end_ = AnyEvent::of(Event<T>::completed());  ///< made while an exception has somewhere to go
};

}  // namespace quorin::rx

#pragma GCC visibility pop
