#pragma once

#include "quorin/table/Conversion.hpp"
#include "quorin/table/Holding.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace quorin::table {

/// The record of a member, and what it holds where it is there.
template <class T>
struct MemberOf;
template <class Owner, class Type>
struct MemberOf<Type Owner::*> {
    using Record = Owner;
    using Value = Type;
    static constexpr bool optional = false;
};
template <class Owner, class Type>
struct MemberOf<std::optional<Type> Owner::*> {
    using Record = Owner;
    using Value = Type;
    static constexpr bool optional = true;
};

/// The member as the compiler spells it, "quorin::Ads::freeTime", without what stands before its own name.
template <auto Member>
consteval std::string_view spelling() {
    std::string_view text = __PRETTY_FUNCTION__;
    text.remove_prefix(text.find("Member = "));
    text = text.substr(0, text.find_first_of(";])"));
    return text.substr(text.rfind(':') + 1);
}

/// The same in bytes of its own, so that the rest of the compiler's text does not come into the program.
template <auto Member>
[[gnu::visibility("hidden")]] inline constexpr auto spelled = [] {
    std::array<char, spelling<Member>().size()> name{};
    std::copy_n(spelling<Member>().begin(), name.size(), name.begin());
    return name;
}();

/// The texts of an enumeration; none for another type.
template <class T>
consteval std::span<const std::string_view> textsOf() {
    if constexpr (requires { T::rawValues; }) return T::rawValues;
    return {};
}

/// The section that a value is, or of which it has several; `void` where it is none.
template <class T>
struct SectionIn {
    using Type = void;
};
template <Model T>
struct SectionIn<T> {
    using Type = T;
};
template <Model T>
struct SectionIn<std::vector<T>> {
    using Type = T;
};
template <Model T>
struct SectionIn<MapOf<T>> {
    using Type = T;
};

/// How that section is read; null where there is none.
template <class T>
consteval auto sectionIn() -> const KeyTable& (*)() {
    if constexpr (Model<typename SectionIn<T>::Type>)
        return &SectionIn<T>::Type::keyTable;
    else
        return nullptr;
}

/// What stands in the field of one member. g++ would export each instance, though this header is not public.
template <auto Member, class T = typename MemberOf<decltype(Member)>::Value>
[[gnu::visibility("hidden")]] inline constexpr Holding holdingOf{
    .member = {spelled<Member>.data(), spelled<Member>.size()},
    .shape = Conversion<T>::shape,
    .texts = textsOf<T>(),
    .section = sectionIn<T>()};

}  // namespace quorin::table
