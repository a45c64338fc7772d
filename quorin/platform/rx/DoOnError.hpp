#pragma once

#include "quorin/platform/rx/Memory.hpp"
#include "quorin/platform/rx/Observable.hpp"

#include <utility>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// The stream as it is. Of an error that ends it `function` hears first, on the delivering thread; not where the
/// subscriber has left or its memory ends.
template <class T, class Function>
Observable<T> doOnError(Observable<T> stream, Function function) {
    return Observable<T>([stream = std::move(stream), function = std::move(function)](Observer<T> observer) {
        return stream.subscribe([observer = std::move(observer), function](const Event<T>& event) mutable {
            if (observer.isDisposed()) return;
            if (const Error* error = event.error()) hasMemoryFor([&] { function(*error); });
            observer.send(event);
        });
    });
}

}  // namespace quorin::rx

#pragma GCC visibility pop
