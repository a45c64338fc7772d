#pragma once

#include "quorin/platform/brule/Object.hpp"
#include "quorin/platform/rx/Map.hpp"
#include "quorin/platform/rx/Observable.hpp"

#include <functional>
#include <string_view>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin {

/// A holder of a stream of any type, through which a host follows it that knows objects alone. A copy holds the same
/// stream. Any thread may subscribe.
class SwiftObservable {
public:
    static constexpr std::string_view objectName = "SwiftObservable";

    template <class T>
    explicit SwiftObservable(rx::Observable<T> stream)
        : stream_(rx::map(std::move(stream), [](const T& value) { return Object(value); })) {}

    /// Each value as an object, then the one end: the stream's error as it is, or completion. A function that is left
    /// out passes over its kind. For threads, and for what the handle does, see `rx::Observable::subscribe`.
    rx::Disposable subscribe(std::function<void(const Object&)> value, std::function<void(const rx::Error&)> error = {},
                             std::function<void()> completed = {}) const {
        return stream_.subscribe(rx::Handlers<Object>{std::move(value), std::move(error), std::move(completed)});
    }

    const rx::Observable<Object>& stream() const { return stream_; }

private:
    rx::Observable<Object> stream_;
};

}  // namespace quorin

#pragma GCC visibility pop
