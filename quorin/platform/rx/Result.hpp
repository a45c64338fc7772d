#pragma once

#include "quorin/platform/rx/Error.hpp"

#include <concepts>
#include <optional>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// A value or the Error that stands in its place.
template <class T>
class [[nodiscard]] Result {
public:
    Result(T value) : value_(std::move(value)) {}
    Result(Error error) : error_(std::move(error)) {}

    template <ErrorType E>
        requires(!std::same_as<E, T>)
    Result(E error) : Result(Error(std::move(error))) {}

    /// True when there is a value.
    explicit operator bool() const { return value_.has_value(); }

    /// Only when there is a value.
    const T& value() const& { return *value_; }
    T& value() & { return *value_; }
    T&& value() && { return *std::move(value_); }

    const T& operator*() const& { return value(); }
    T& operator*() & { return value(); }
    T&& operator*() && { return std::move(*this).value(); }
    const T* operator->() const { return &value(); }
    T* operator->() { return &value(); }

    /// Only when there is no value.
    const Error& error() const { return *error_; }

private:
    std::optional<T> value_{};
    std::optional<Error> error_{};
};

}  // namespace quorin::rx

#pragma GCC visibility pop
