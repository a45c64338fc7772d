#pragma once

#include "quorin/platform/rx/Error.hpp"

#include <optional>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// What a stream delivers: any number of values, then at most one end, which is an error or completion.
template <class T>
class Event {
public:
    static Event next(T value) { return Event(std::move(value), std::nullopt); }
    static Event failed(Error error) { return Event(std::nullopt, std::move(error)); }
    static Event completed() { return Event(std::nullopt, std::nullopt); }

    /// Null at the end.
    const T* value() const { return value_ ? &*value_ : nullptr; }

    /// The value, only where there is one.
    const T& operator*() const { return *value_; }

    /// Null unless the stream failed.
    const Error* error() const { return error_ ? &*error_ : nullptr; }

    bool isCompleted() const { return !value_ && !error_; }

    /// True for an error and for completion: nothing comes after it.
    bool isTerminal() const { return !value_; }

private:
    Event(std::optional<T> value, std::optional<Error> error) : value_(std::move(value)), error_(std::move(error)) {}

    std::optional<T> value_;
    std::optional<Error> error_;
};

}  // namespace quorin::rx

#pragma GCC visibility pop
