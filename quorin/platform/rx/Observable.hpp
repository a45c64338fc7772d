#pragma once

#include "quorin/platform/rx/Disposable.hpp"
#include "quorin/platform/rx/Event.hpp"
#include "quorin/platform/rx/Handlers.hpp"
#include "quorin/platform/rx/Observer.hpp"

#include <concepts>
#include <functional>
#include <memory>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// A stream of values that may end, once, with completion or with an error. It is cold: each subscription runs the
/// source anew. A copy is the same stream. Any thread may subscribe where the source may be run on any, as those of the
/// library may.
template <class T>
class Observable {
public:
    using Handler = std::function<void(const Event<T>&)>;

    /// A stream out of a function that takes an `Observer<T>`, delivers into it, at once or later, and yields what
    /// stops it, a Disposable. What it yields is disposed when the stream has ended or its subscriber left; it should
    /// not hold the observer.
    template <std::invocable<Observer<T>> Source>
    explicit Observable(Source source)
        : source_(std::make_shared<const AnyObserver::Source>(
              [source = std::move(source)](const AnyObserver& observer) mutable -> Disposable {
                  return source(Observer<T>(observer));
              })) {}

    /// Runs the source; events that it has at once arrive before this returns. The handler is called on the threads on
    /// which the source delivers, never with a lock held, and ends the process when it throws; only a `std::bad_alloc`
    /// goes to who delivers, when all others have their event. Where that is the thread of the requests, nobody is
    /// above it, and the process ends all the same. After the end and after `dispose()` it is not called again and is
    /// released; when another thread disposes, a call under way is finished.
    template <std::invocable<const Event<T>&> Function>
    Disposable subscribe(Function handler) const {
        return subscribeUntyped(
            [handler = std::move(handler)](const AnyEvent& event) mutable { handler(event.as<T>()); });
    }

    /// An empty handler hears of nothing.
    Disposable subscribe(Handler handler) const {
        return subscribe([handler = std::move(handler)](const Event<T>& event) {
            if (handler) handler(event);
        });
    }

    Disposable subscribe(Handlers<T> handlers) const {
        return subscribe([handlers = std::move(handlers)](const Event<T>& event) { handlers.handle(event); });
    }

    /// The same for code that passes the events on without looking at them.
    Disposable subscribeUntyped(AnyObserver::Handler handler) const {
        const auto source = source_;  // the handler may drop the stream it is subscribed to
        return AnyObserver::subscribe(*source, std::move(handler));
    }

private:
    std::shared_ptr<const AnyObserver::Source> source_;
};

}  // namespace quorin::rx

#pragma GCC visibility pop
