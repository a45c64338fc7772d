#include "Changes.hpp"

#include "EndpointChange.hpp"
#include "Fields.hpp"

#include <algorithm>
#include <array>

namespace quorin::document {
namespace {

using json::Node;
using Kind = Field::Kind;

/// Why it breaks apps that a field of the kind vanishes; empty where it does not.
std::string_view lossOf(Kind kind) {
    switch (kind) {
        case Kind::endpoint: return "the endpoint vanishes";
        case Kind::section:
        case Kind::entries:
        case Kind::elements: return "the section vanishes";
        default: return {};
    }
}

/// Collects what differs between two archived forms.
class Comparison {
public:
    Comparison(DocumentMap before, DocumentMap after) : before_(std::move(before)), after_(std::move(after)) {}

    std::vector<Change> changes() && {
        walk(Configuration::keyTable(), nullptr, {&before_.node(), &after_.node()},
             [this](const Field& field) { return visit(field); });
        std::vector<Change> sorted;
        for (const Grade grade : {Grade::breaks, Grade::behaviour, Grade::cosmetic}) {
            for (Change& change : changes_) {
                if (change.grade == grade) sorted.push_back(std::move(change));
            }
        }
        return sorted;
    }

private:
    bool visit(const Field& field) {
        if (!field.values[0] || !field.values[1]) {
            add(field, field.values[1] ? std::string_view() : lossOf(field.kind));
            return false;
        }
        if (field.kind == Kind::value) compare(field);
        if (field.kind == Kind::elements) compareElements(field);
        if (field.kind == Kind::endpoint) compareEndpoint(field);
        return field.kind != Kind::elements && field.kind != Kind::endpoint;
    }

    void compare(const Field& field) {
        if (!json::equal(*field.values[0], *field.values[1])) add(field, {});
    }

    void compareEndpoint(const Field& endpoint) {
        walk(*endpoint.table, &endpoint.path, endpoint.values, [this](const Field& field) {
            const Node* const before = field.values[0];
            const Node* const after = field.values[1];
            if (before && after && json::equal(*before, *after)) return false;
            add(field, changeOfRequest(field.path.name, before ? before->string() : "", after ? after->string() : ""));
            return false;
        });
    }

    void compareElements(const Field& list) {
        const Node& before = *list.values[0];
        const Node& after = *list.values[1];
        const std::uint32_t shorter = std::min(before.size, after.size);
        std::uint32_t head = 0;
        while (head < shorter && json::equal(before.items[head], after.items[head])) ++head;
        std::uint32_t tail = 0;
        while (tail < shorter - head
               && json::equal(before.items[before.size - 1 - tail], after.items[after.size - 1 - tail]))
            ++tail;
        for (std::uint32_t i = head; i < std::max(before.size, after.size) - tail; ++i) {
            const Path path{.outer = &list.path, .index = i};
            const Nodes elements{i < before.size - tail ? before.items + i : nullptr,
                                 i < after.size - tail ? after.items + i : nullptr};
            if (visit({path, Kind::element, elements, list.table}))
                walk(*list.table, &path, elements, [this](const Field& field) { return visit(field); });
        }
    }

    /// A change that breaks apps where it says why.
    void add(const Field& field, std::string_view why) {
        Change& change = changes_.emplace_back();
        change.path = field.path.text();
        change.grade = why.empty() ? Grade::behaviour : Grade::breaks;
        change.why = why;
        if (field.values[0]) change.before = before_.value().at(*field.values[0]);
        if (field.values[1]) change.after = after_.value().at(*field.values[1]);
    }

    DocumentMap before_;
    DocumentMap after_;
    std::vector<Change> changes_{};
};

/// Whether a reader of the documents sees a difference. The map of those who read the whole document holds the sections
/// of others, too.
bool isWrittenDifferently(const BrandView& before, const BrandView& after, bool isSameMap) {
    const bool isWhole = before.section.name.empty() && after.section.name.empty();
    return (!isWhole && !isSameMap) || before.source() != after.source();
}

}  // namespace

std::string_view nameOf(Grade grade) {
    constexpr std::array<std::string_view, grades> names{"breaks", "behaviour", "cosmetic"};
    return names[static_cast<std::size_t>(grade)];
}

std::vector<Change> changesBetween(const BrandView& before, const BrandView& after) {
    std::vector<Change> changes;
    const bool isSameMap = before.section.map == after.section.map;
    if (!isSameMap) changes = Comparison(before.values(), after.values()).changes();
    if (changes.empty() && isWrittenDifferently(before, after, isSameMap))
        changes.push_back({.grade = Grade::cosmetic, .why = "the documents differ only in what apps do not read"});
    return changes;
}

std::size_t count(std::span<const Change> changes, Grade grade) {
    return static_cast<std::size_t>(
        std::count_if(changes.begin(), changes.end(), [&](const Change& change) { return change.grade == grade; }));
}

bool isUnnoticed(std::span<const Change> changes) { return count(changes, Grade::cosmetic) == changes.size(); }

}  // namespace quorin::document
