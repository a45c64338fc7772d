#pragma once

#include <concepts>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// A type that can travel as the error of a stream: it has a name of its own and can put itself into words.
template <class E>
concept ErrorType = requires(const E& error) {
    { E::errorName } -> std::convertible_to<std::string_view>;
    { error.description() } -> std::convertible_to<std::string>;
};

/// The error a stream ends with, whatever its type. A copy shares the error, which never changes.
class Error {
public:
    /// Implicit, so that an error is passed as what it is.
    template <ErrorType E>
    Error(E error)
        : value_(std::make_shared<const E>(std::move(error))), name_(E::errorName), describe_(&describeAs<E>) {}

    /// The error as the type it was made from; null when it was made from another. Types are told apart by the text of
    /// their `errorName` and not by an address, which holds between shared libraries and without run-time types.
    template <ErrorType E>
    const E* as() const {
        return name_ == std::string_view(E::errorName) ? static_cast<const E*>(value_.get()) : nullptr;
    }

    /// For people, in the words of the error itself.
    std::string description() const { return describe_(value_.get()); }

private:
    template <class E>
    static std::string describeAs(const void* error) {
        return static_cast<const E*>(error)->description();
    }

    std::shared_ptr<const void> value_;
    std::string_view name_;
    std::string (*describe_)(const void*);
};

}  // namespace quorin::rx

#pragma GCC visibility pop
