#include "quorin/platform/json/Builder.hpp"

#include "quorin/platform/json/Members.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <new>

namespace quorin::json {
namespace {

std::uint32_t counted(std::size_t size) {
    if (size > std::numeric_limits<std::uint32_t>::max()) throw std::bad_alloc();
    return static_cast<std::uint32_t>(size);
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

std::size_t Builder::begin() {
    ++depth_;
    return open_.size();
}

void Builder::share(const Node& value) {
    if (value.height + depth_ > deepest)
        copy(value);
    else
        open_.push_back(value);
}

void Builder::copy(const Node& value) {
    if (value.height > 0 && depth_ >= deepest) return null();
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
    const std::size_t nodes = open_.size() - begun;
    const std::uint32_t count = counted(nodes / 2);
    Node* const items = arena_->nodes(nodes, indexBytes(count));
    std::uninitialized_copy_n(open_.data() + begun, nodes, items);
    close(Kind::object, begun, items, settleMembers(items, count));
}

void Builder::close(Kind kind, std::size_t begun, const Node* items, std::size_t size) {
    std::uint16_t height = 0;
    for (std::size_t i = begun; i < open_.size(); ++i) height = std::max(height, open_[i].height);
    open_.resize(begun);
    --depth_;
    if (height >= deepest) return null();
    Node& node = push(kind);
    node.height = static_cast<std::uint16_t>(height + 1);
    node.size = counted(size);
    node.items = items;
}

Value Builder::finish() { return Value(open_.back(), std::move(arena_)); }

}  // namespace quorin::json
