#include "quorin/platform/json/Members.hpp"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <vector>

namespace quorin::json {
namespace {

std::string_view nameAt(const Node* items, std::uint32_t member) { return items[std::size_t{2} * member].string(); }

bool sameName(const Node* items, std::uint32_t left, std::uint32_t right) {
    return nameAt(items, left) == nameAt(items, right);
}

/// One bit for a name, so that a set of different names is most often known to be one without comparing them.
std::uint64_t markOf(std::string_view name) {
    if (name.empty()) return 1;
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(name[i]); };
    const std::size_t mixed = name.size() * 7 + at(0) * 5U + at(name.size() - 1) * 3U + at(name.size() / 2);
    return std::uint64_t{1} << (mixed & 63U);
}

/// Whether a few members have two of one name: only those whose marks meet are compared.
bool fewHaveDoubles(const Node* items, std::uint32_t count) {
    std::uint64_t seen = 0;
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint64_t mark = markOf(nameAt(items, i));
        if (seen & mark) {
            for (std::uint32_t j = 0; j < i; ++j) {
                if (nameAt(items, j) == nameAt(items, i)) return true;
            }
        }
        seen |= mark;
    }
    return false;
}

/// Puts the members in byte order of their names, those of one name in document order.
void sortByName(std::uint32_t* order, const Node* items, std::uint32_t count) {
    std::iota(order, order + count, 0U);
    std::sort(order, order + count, [&](std::uint32_t left, std::uint32_t right) {
        const int difference = nameAt(items, left).compare(nameAt(items, right));
        return difference != 0 ? difference < 0 : left < right;
    });
}

std::uint32_t* writeIndex(Node* items, std::uint32_t count) {
    auto* const index = reinterpret_cast<std::uint32_t*>(items + std::size_t{2} * count);
    sortByName(index, items, count);
    return index;
}

/// Keeps the last member of each name, in document order.
std::uint32_t withoutDoubles(Node* items, std::uint32_t count) {
    std::vector<std::uint32_t> order(count);
    sortByName(order.data(), items, count);
    std::vector<bool> replaced(count);
    for (std::uint32_t i = 1; i < count; ++i) replaced[order[i - 1]] = sameName(items, order[i - 1], order[i]);

    std::uint32_t kept = 0;
    for (std::uint32_t i = 0; i < count; ++i) {
        if (replaced[i]) continue;
        std::copy_n(items + std::size_t{2} * i, 2, items + std::size_t{2} * kept++);
    }
    return kept;
}

}  // namespace

std::uint32_t settleMembers(Node* items, std::uint32_t count) {
    bool doubled = false;
    if (count <= Node::indexedFrom) {
        doubled = fewHaveDoubles(items, count);
    } else {
        const std::uint32_t* const index = writeIndex(items, count);
        const auto same = [&](std::uint32_t left, std::uint32_t right) { return sameName(items, left, right); };
        doubled = std::adjacent_find(index, index + count, same) != index + count;
    }
    if (!doubled) return count;
    const std::uint32_t kept = withoutDoubles(items, count);
    if (kept > Node::indexedFrom) writeIndex(items, kept);
    return kept;
}

std::vector<std::uint32_t> byteOrder(const Node& object) {
    if (object.size > Node::indexedFrom) return {object.index(), object.index() + object.size};
    std::vector<std::uint32_t> order(object.size);
    sortByName(order.data(), object.items, object.size);
    return order;
}

}  // namespace quorin::json
