#pragma once

#include <concepts>
#include <memory>
#include <string_view>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin {

/// A type that says itself by what name its objects are known, and so is the same one in every shared library.
template <class T>
concept NamedObject = requires {
    { T::objectName } -> std::convertible_to<std::string_view>;
};

/// By which a type without a name is known: an address of its own in each library and program. It is not constant, or a
/// linker may put two of them in one place; and it is hidden, as all that asks for it, or a loader may mix two
/// libraries'.
template <class T>
[[gnu::visibility("hidden")]] inline char placeOf = 0;

/// A value of any type, shared and constant, for those who cannot name its type where they receive it. A copy is one
/// count; any thread may read it.
class Object {
public:
    template <class T>
        requires(!std::same_as<T, Object>)
    [[gnu::visibility("hidden")]] explicit Object(T value)
        : value_(std::make_shared<const T>(std::move(value))), type_(typeOf<T>()) {}

    /// The value as the type it was made from; null when it was made from another. A `NamedObject` is told by the text
    /// of its name, also where it comes from another shared library. Any other type is known inside one library or
    /// program alone. Neither needs run-time types.
    template <class T>
    [[gnu::visibility("hidden")]] std::shared_ptr<const T> as() const {
        return type_ == typeOf<T>() ? std::static_pointer_cast<const T>(value_) : nullptr;
    }

private:
    struct Type {
        std::string_view name{};  ///< empty: `place` tells
        const void* place = nullptr;

        bool operator==(const Type&) const = default;
    };

    template <class T>
    [[gnu::visibility("hidden")]] static Type typeOf() {
        if constexpr (NamedObject<T>)
            return {T::objectName, nullptr};
        else
            return {{}, &placeOf<T>};
    }

    std::shared_ptr<const void> value_;
    Type type_;
};

}  // namespace quorin

#pragma GCC visibility pop
