#include "quorin/platform/json/Builder.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <new>

namespace quorin::json {
namespace {

std::uint32_t counted(std::size_t size) {
    if (size > std::numeric_limits<std::uint32_t>::max()) throw std::bad_alloc();
    return static_cast<std::uint32_t>(size);
}

/// One bit for a name, so that a set of different names is most often known to be one without comparing them.
std::uint64_t markOf(std::string_view name) {
    if (name.empty()) return 1;
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(name[i]); };
    const std::size_t mixed = name.size() * 7 + at(0) * 5U + at(name.size() - 1) * 3U + at(name.size() / 2);
    return std::uint64_t{1} << (mixed & 63U);
}

bool mayHoldDoubles(const Node* members, std::size_t count) {
    std::uint64_t seen = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint64_t mark = markOf(members[2 * i].string());
        if (seen & mark) return true;
        seen |= mark;
    }
    return false;
}

}  // namespace

Node& Builder::push(Kind kind) {
    Node& node = open_.emplace_back();
    node.kind = kind;
    return node;
}

void Builder::boolean(bool value) { push(Kind::boolean).boolean = value; }

void Builder::integer(Integer value) { push(Kind::integer).integer = value; }

void Builder::unsignedInteger(std::uint64_t value) {
    if (value <= static_cast<std::uint64_t>(std::numeric_limits<Integer>::max()))
        return integer(static_cast<Integer>(value));
    push(Kind::unsignedInteger).unsignedInteger = value;
}

void Builder::real(double value) {
    if (!std::isfinite(value)) return null();
    push(Kind::real).real = value;
}

void Builder::string(std::string_view value) {
    Node& node = push(Kind::string);
    node.size = counted(value.size());
    node.text = arena_->text(value);
}

void Builder::copy(const Node& value) {
    switch (value.kind) {
        case Kind::string: return string(value.string());
        case Kind::list: {
            const std::size_t begun = begin();
            for (std::uint32_t i = 0; i < value.size; ++i) copy(value.items[i]);
            return endList(begun);
        }
        case Kind::object: {
            const std::size_t begun = begin();
            for (std::uint32_t i = 0; i < value.size; ++i) {
                name(value.name(i).string());
                copy(value.value(i));
            }
            return endObject(begun);
        }
        default: open_.push_back(value);
    }
}

void Builder::endList(std::size_t begun) {
    const std::size_t count = open_.size() - begun;
    Node* const items = arena_->nodes(count);
    std::uninitialized_copy_n(open_.data() + begun, count, items);
    close(Kind::list, begun, items, count);
}

void Builder::endObject(std::size_t begun) {
    const std::size_t count = withoutDoubles(begun);
    const bool indexed = count > Node::indexedFrom;
    Node* const items = arena_->nodes(2 * count, indexed ? count * sizeof(std::uint32_t) : 0);
    std::uninitialized_copy_n(open_.data() + begun, 2 * count, items);
    if (indexed) std::memcpy(static_cast<void*>(items + 2 * count), index_.data(), count * sizeof(std::uint32_t));
    close(Kind::object, begun, items, count);
}

void Builder::close(Kind kind, std::size_t begun, const Node* items, std::size_t size) {
    std::uint16_t height = 0;
    for (std::size_t i = begun; i < open_.size(); ++i) height = std::max(height, open_[i].height);
    open_.resize(begun);
    if (height == deepest) return null();
    Node& node = push(kind);
    node.height = static_cast<std::uint16_t>(height + 1);
    node.size = counted(size);
    node.items = items;
}

/// Takes out members that a later one of the same name replaces, leaves `index_` sorted where the object needs it, and
/// yields how many members there are.
std::size_t Builder::withoutDoubles(std::size_t begun) {
    Node* const members = open_.data() + begun;
    const std::size_t count = (open_.size() - begun) / 2;
    const bool indexed = count > Node::indexedFrom;
    if (!indexed && !mayHoldDoubles(members, count)) return count;

    const auto nameOfMember = [&](std::uint32_t member) { return members[std::size_t{2} * member].string(); };
    const auto sortIndex = [&](std::size_t size) {
        index_.resize(size);
        for (std::uint32_t i = 0; i < size; ++i) index_[i] = i;
        std::sort(index_.begin(), index_.end(), [&](std::uint32_t left, std::uint32_t right) {
            const int order = nameOfMember(left).compare(nameOfMember(right));
            return order != 0 ? order < 0 : left < right;
        });
    };
    sortIndex(count);
    std::vector<bool> replaced;
    for (std::size_t i = 1; i < count; ++i) {
        if (nameOfMember(index_[i - 1]) != nameOfMember(index_[i])) continue;
        replaced.resize(count);
        replaced[index_[i - 1]] = true;
    }
    if (replaced.empty()) return count;

    std::size_t kept = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (replaced[i]) continue;
        members[2 * kept] = members[2 * i];
        members[2 * kept + 1] = members[2 * i + 1];
        ++kept;
    }
    open_.resize(begun + 2 * kept);
    sortIndex(kept);
    return kept;
}

Value Builder::finish() { return Value(open_.back(), std::move(arena_)); }

}  // namespace quorin::json
