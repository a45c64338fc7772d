#pragma once

#include "quorin/platform/rx/Observable.hpp"
#include "quorin/platform/rx/Relay.hpp"
#include "quorin/platform/rx/Rollback.hpp"

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// The host's way to run a task, at once or later, on a thread of its choice. It runs every task, and each once.
using Executor = std::function<void(std::function<void()>)>;

/// The same events in the same order, each delivered in a task of the executor. Nothing is delivered after the
/// subscriber left, whatever tasks the executor still holds. The executor is called on the threads on which the stream
/// delivers; its tasks may run on several, one event is delivered at a time.
template <class T>
Observable<T> observeOn(Observable<T> stream, Executor executor) {
    return Observable<T>([stream = std::move(stream), executor = std::move(executor)](const Observer<T>& observer) {
        const auto relay = std::make_shared<Relay>(observer.untyped());
        return stream.subscribeUntyped([relay, executor](const AnyEvent& event) {
            std::function<void()> task = [relay] { relay->deliverOne(); };
            const std::size_t number = relay->put(event.template kept<T>());
            Rollback withoutTask([&] { relay->takeBack(number); });
            executor(std::move(task));
            withoutTask.keep();
        });
    });
}

}  // namespace quorin::rx

#pragma GCC visibility pop
