#include "Fields.hpp"

#include "quorin/model/Feature.hpp"
#include "quorin/model/Group.hpp"
#include "quorin/services/WebService.hpp"
#include "quorin/table/Conversion.hpp"

#include <algorithm>

namespace quorin::document {
namespace {

using json::Node;
using table::Row;
using Kind = Field::Kind;

Kind kindOf(const table::Holding& holding) {
    if (!holding.section) return Kind::value;
    if (holding.shape == table::Conversion<MapOf<Feature>>::shape) return Kind::entries;
    if (holding.shape == table::Conversion<std::vector<Group>>::shape) return Kind::elements;
    return Kind::section;
}

bool isField(const Row& row) { return row.read && !row.takesName; }

bool isAbsent(const Nodes& values) {
    return std::all_of(values.begin(), values.end(), [](const Node* value) { return !value; });
}

Nodes membersOf(const Nodes& objects, std::string_view name) {
    Nodes members(objects.size());
    std::transform(objects.begin(), objects.end(), members.begin(),
                   [&](const Node* object) { return object ? json::find(*object, name) : nullptr; });
    return members;
}

Nodes elementsOf(const Nodes& lists, std::uint32_t index) {
    Nodes elements(lists.size());
    std::transform(lists.begin(), lists.end(), elements.begin(),
                   [&](const Node* list) { return list && index < list->size ? list->items + index : nullptr; });
    return elements;
}

/// The names of all members of the objects, in byte order.
std::vector<std::string_view> namesOf(const Nodes& objects) {
    std::vector<std::string_view> names;
    for (const Node* const object : objects) {
        for (std::uint32_t i = 0; object && i < object->size; ++i) names.push_back(object->name(i).string());
    }
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

std::uint32_t longestOf(const Nodes& lists) {
    std::uint32_t size = 0;
    for (const Node* const list : lists) size = std::max(size, list ? list->size : 0);
    return size;
}

bool areObjects(const Nodes& values) {
    return std::all_of(values.begin(), values.end(),
                       [](const Node* value) { return !value || value->kind == json::Kind::object; });
}

/// Of a feature, or of an object `depth` below it.
void walkMembers(const Path* at, const Nodes& objects, const Visitor& visit, int depth = 0) {
    for (const std::string_view name : namesOf(objects)) {
        const Path path{.outer = at, .name = name};
        const Nodes values = membersOf(objects, name);
        const bool isObject = depth < deepestObject && areObjects(values);
        if (visit({path, isObject ? Kind::object : Kind::value, values}) && isObject)
            walkMembers(&path, values, visit, depth + 1);
    }
}

void walkEntries(const Field& map, const Visitor& visit) {
    const Kind kind = map.table == &WebService::keyTable() ? Kind::endpoint : Kind::entry;
    for (const std::string_view name : namesOf(map.values)) {
        const Path path{.outer = &map.path, .name = name};
        const Nodes entries = membersOf(map.values, name);
        if (visit({path, kind, entries, map.table})) walk(*map.table, &path, entries, visit);
    }
}

void walkElements(const Field& list, const Visitor& visit) {
    for (std::uint32_t i = 0; i < longestOf(list.values); ++i) {
        const Path path{.outer = &list.path, .index = i};
        const Nodes elements = elementsOf(list.values, i);
        if (visit({path, Kind::element, elements, list.table})) walk(*list.table, &path, elements, visit);
    }
}

void walkBelow(const Field& field, const Visitor& visit) {
    switch (field.kind) {
        case Kind::entries: return walkEntries(field, visit);
        case Kind::elements: return walkElements(field, visit);
        case Kind::section: return walk(*field.table, &field.path, field.values, visit);
        default: return;
    }
}

}  // namespace

bool Field::isBare(std::size_t position) const {
    const Node* const node = values[position];
    if (!node || kind == Kind::value) return false;
    if (!table || kind == Kind::entries || kind == Kind::elements) return node->size == 0;
    return std::none_of(table->rows.begin(), table->rows.end(),
                        [&](const Row& row) { return isField(row) && json::find(*node, row.key); });
}

void walk(const KeyTable& table, const Path* at, const Nodes& sections, const Visitor& visit) {
    for (const Row& row : table.rows) {
        if (!isField(row)) continue;
        const Nodes values = membersOf(sections, row.key);
        if (isAbsent(values)) continue;
        if (row.origin == Row::Origin::whole) {
            walkMembers(at, values, visit);
            continue;
        }
        const Path path{.outer = at, .name = row.key};
        const Kind kind = kindOf(*row.holds);
        const Field field{path, kind, values, kind == Kind::value ? nullptr : &row.holds->section()};
        if (visit(field)) walkBelow(field, visit);
    }
}

}  // namespace quorin::document
