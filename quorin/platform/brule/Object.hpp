#pragma once

#include <concepts>
#include <memory>
#include <source_location>
#include <string_view>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin {

/// A type that says itself by what name its objects are known, and so is the same one to every compiler.
template <class T>
concept NamedObject = requires {
    { T::objectName } -> std::convertible_to<std::string_view>;
};

/// A value of any type, shared and constant, for those who cannot name its type where they receive it. A copy is one
/// count; any thread may read it.
class Object {
public:
    template <class T>
        requires(!std::same_as<T, Object>)
    explicit Object(T value) : value_(std::make_shared<const T>(std::move(value))), name_(nameOf<T>()) {}

    /// The value as the type it was made from; null when it was made from another. Types are told apart by the text of
    /// their name and not by an address, which holds between shared libraries and without run-time types.
    template <class T>
    std::shared_ptr<const T> as() const {
        return name_ == nameOf<T>() ? std::static_pointer_cast<const T>(value_) : nullptr;
    }

private:
    template <class T>
    static constexpr std::string_view nameOf() {
        if constexpr (NamedObject<T>)
            return T::objectName;
        else
            return std::source_location::current().function_name();
    }

    std::shared_ptr<const void> value_;
    std::string_view name_;
};

}  // namespace quorin

#pragma GCC visibility pop
