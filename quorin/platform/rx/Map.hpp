#pragma once

#include "quorin/platform/rx/Memory.hpp"
#include "quorin/platform/rx/Observable.hpp"
#include "quorin/platform/rx/Result.hpp"

#include <optional>
#include <type_traits>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// What a stream carries that is mapped to this type: the value, also out of a Result.
template <class U>
struct Mapped {
    using Value = U;
    static void deliver(U value, const Observer<U>& observer) { observer.next(std::move(value)); }
};

template <class U>
struct Mapped<Result<U>> {
    using Value = U;
    static void deliver(Result<U> result, const Observer<U>& observer) {
        if (result)
            observer.next(*std::move(result));
        else
            observer.fail(result.error());
    }
};

/// Each value turned into what `function` makes of it, which is a value or a Result; a failed Result ends the stream
/// with its error, and one whose memory ends with that of `Error::noMemory()`. The function runs on the delivering
/// thread and ends the process when it throws anything else.
template <class T, class Function>
auto map(Observable<T> stream, Function function) {
    using Made = std::remove_cvref_t<std::invoke_result_t<Function&, const T&>>;
    using To = Mapped<Made>;
    using U = typename To::Value;
    return Observable<U>([stream = std::move(stream), function = std::move(function)](Observer<U> observer) {
        return stream.subscribe([observer = std::move(observer), function](const Event<T>& event) mutable {
            if (observer.isDisposed()) return;
            if (const T* value = event.value()) {
                std::optional<Made> made;
                if (hasMemoryFor([&] { made.emplace(function(*value)); }))
                    To::deliver(*std::move(made), observer);
                else
                    observer.fail(Error::noMemory());
            } else if (const Error* error = event.error()) {
                observer.fail(*error);
            } else {
                observer.complete();
            }
        });
    });
}

}  // namespace quorin::rx

#pragma GCC visibility pop
