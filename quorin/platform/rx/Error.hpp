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

/// The error of a stream for whose next value there is no memory.
struct NoMemory {
    static constexpr std::string_view errorName = "rx.NoMemory";

    std::string description() const { return "memory is exhausted"; }

    bool operator==(const NoMemory&) const = default;
};

/// The error a stream ends with, whatever its type. A copy shares the error, which never changes; any thread may
/// read it.
class Error {
public:
    /// Implicit, so that an error is passed as what it is.
    template <ErrorType E>
    Error(E error)
        : value_(std::make_shared<const E>(std::move(error))), name_(E::errorName), describe_(&describeAs<E>) {}

    /// A `NoMemory`, which takes none.
    static Error noMemory();

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
    Error(std::shared_ptr<const void> value, const E&)
        : value_(std::move(value)), name_(E::errorName), describe_(&describeAs<E>) {}

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
