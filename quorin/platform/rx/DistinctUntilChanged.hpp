#pragma once

#include "quorin/platform/rx/Observable.hpp"
#include "quorin/platform/rx/Rollback.hpp"

#include <functional>
#include <optional>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// Without each value that is `equal` to the last one delivered to the same subscriber. One whose delivery failed, for
/// want of memory, was not delivered.
template <class T, class Equal = std::equal_to<>>
Observable<T> distinctUntilChanged(Observable<T> stream, Equal equal = {}) {
    return Observable<T>([stream = std::move(stream), equal = std::move(equal)](Observer<T> observer) {
        return stream.subscribe(
            [observer = std::move(observer), equal, last = std::optional<T>()](const Event<T>& event) mutable {
                const T* const value = event.value();
                if (value && last && equal(*last, *value)) return;
                if (value) last.emplace(*value);  // before the delivery, in which the next value may arrive
                Rollback forgetting([&last] { last.reset(); });
                observer.send(event);
                forgetting.keep();
            });
    });
}

}  // namespace quorin::rx

#pragma GCC visibility pop
