#pragma once

#include "quorin/platform/rx/Observable.hpp"

#include <utility>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// A stream of this one value.
template <class T>
Observable<T> just(T value) {
    return Observable<T>([value = std::move(value)](const Observer<T>& observer) {
        observer.next(value);
        observer.complete();
        return Disposable();
    });
}

/// A stream of no value that fails at once.
template <class T>
Observable<T> error(Error error) {
    return Observable<T>([error = std::move(error)](const Observer<T>& observer) {
        observer.fail(error);
        return Disposable();
    });
}

}  // namespace quorin::rx

#pragma GCC visibility pop
