#pragma once

#include "quorin/platform/rx/Error.hpp"

#include <concepts>
#include <utility>
#include <variant>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// A value or the Error that stands in its place.
template <class T>
class [[nodiscard]] Result {
public:
    Result(T value) : content_(std::in_place_index<0>, std::move(value)) {}
    Result(Error error) : content_(std::in_place_index<1>, std::move(error)) {}

    template <ErrorType E>
        requires(!std::same_as<E, T>)
    Result(E error) : Result(Error(std::move(error))) {}

    /// True when there is a value.
    explicit operator bool() const { return content_.index() == 0; }

    /// Only when there is a value.
    const T& value() const& { return *std::get_if<0>(&content_); }
    T& value() & { return *std::get_if<0>(&content_); }
    T&& value() && { return std::move(*std::get_if<0>(&content_)); }

    const T& operator*() const& { return value(); }
    T& operator*() & { return value(); }
    T&& operator*() && { return std::move(*this).value(); }
    const T* operator->() const { return &value(); }
    T* operator->() { return &value(); }

    /// Only when there is no value.
    const Error& error() const { return *std::get_if<1>(&content_); }

private:
    std::variant<T, Error> content_;
};

}  // namespace quorin::rx

#pragma GCC visibility pop
