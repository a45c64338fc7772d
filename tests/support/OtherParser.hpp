#pragma once

#include "quorin/platform/json/Parse.hpp"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Another parser's tree and verdict, narrowed by the rules in which ours is stricter.
namespace quorin::json {

/// The other parser's objects with our order: a later member of one name stands where it stands, and the earlier goes.
template <class Key, class T, class Less, class Allocator>
struct LastOfEachName : nlohmann::ordered_map<Key, T, Less, Allocator> {
    using Base = nlohmann::ordered_map<Key, T, Less, Allocator>;
    using Base::Base;

    T& operator[](const Key& key) {
        this->erase(key);
        return this->emplace(key, T{}).first->second;
    }
};

using OtherTree = nlohmann::basic_json<LastOfEachName>;

/// Whether no more than so many lists and objects stand inside each other; goes no deeper to find out.
inline bool isWithin(const OtherTree& tree, std::size_t levels) {
    if (!tree.is_structured()) return true;
    return levels > 0
           && std::all_of(tree.begin(), tree.end(), [&](const OtherTree& item) { return isWithin(item, levels - 1); });
}

/// What the other parser makes of `text`; empty when it has to be refused. Ours alone refuses a NUL byte (there the
/// other one stops, content with what came before), a second byte order mark, and a nesting that is too deep.
inline std::optional<OtherTree> readByOther(std::string_view text) {
    if (text.find('\0') != text.npos || text.starts_with("\xEF\xBB\xBF\xEF\xBB\xBF")) return std::nullopt;
    OtherTree tree = OtherTree::parse(text.begin(), text.end(), nullptr, false);
    if (tree.is_discarded() || !isWithin(tree, deepestNesting)) return std::nullopt;
    return tree;
}

/// Whether two trees are one in every kind, order and bit; unlike `==`, for which 1 is 1.0 and true.
inline bool sameTree(const Node& ours, const OtherTree& other) {
    const auto sameMember = [&](std::uint32_t i) {
        const auto& [name, value] = other.get_ref<const OtherTree::object_t&>().begin()[i];
        return ours.name(i).string() == name && sameTree(ours.value(i), value);
    };
    const auto sameItems = [&](const auto& same) {
        for (std::uint32_t i = 0; i < ours.size; ++i) {
            if (!same(i)) return false;
        }
        return true;
    };
    switch (ours.kind) {
        case Kind::null: return other.is_null();
        case Kind::boolean: return other.is_boolean() && other.get<bool>() == ours.boolean;
        case Kind::integer:
            return other.is_number_integer() && other.get<std::int64_t>() == ours.integer
                   && (ours.integer < 0 || other.get<std::uint64_t>() == std::uint64_t(ours.integer));
        case Kind::unsignedInteger:
            return other.is_number_unsigned() && other.get<std::uint64_t>() == ours.unsignedInteger
                   && ours.unsignedInteger > std::uint64_t{INT64_MAX};
        case Kind::real:
            return other.is_number_float()
                   && std::bit_cast<std::uint64_t>(other.get<double>()) == std::bit_cast<std::uint64_t>(ours.real);
        case Kind::string: return other.is_string() && other.get_ref<const std::string&>() == ours.string();
        case Kind::list:
            return other.is_array() && other.size() == ours.size
                   && sameItems([&](std::uint32_t i) { return sameTree(ours.items[i], other[i]); });
        case Kind::object: return other.is_object() && other.size() == ours.size && sameItems(sameMember);
    }
    return false;
}

}  // namespace quorin::json
