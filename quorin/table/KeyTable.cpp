#include "quorin/table/KeyTable.hpp"

#include "quorin/platform/json/Builder.hpp"

#include <algorithm>

namespace quorin::table {
namespace {

Role roleOf(const Row& row, Form form) {
    if (!row.required) return Role::field;
    return row.defaulted && form == Form::document ? Role::defaulted : Role::required;
}

// The walk exists twice: as it is done for a listener, which keeps a trail, and without any trace of one.

template <bool observed>
[[gnu::always_inline]] inline bool readMember(const Row& row, std::string_view key, void* model, const Node& map,
                                              const Reading& at) {
    const Role role = roleOf(row, at.form());
    const Reading* here = &at;
    Step step;
    if constexpr (observed) here = &at.member(step, key, role);
    const Node* const value = json::find(map, key);
    if (!value) return role != Role::required || here->miss(row.holds->shape);
    return row.read(*value, model, *here) || role != Role::required;
}

template <bool observed>
bool readInside(const Row& row, void* model, const Node& map, const Reading& at) {
    const Role role = roleOf(row, at.form());
    const Reading* around = &at;
    Step step;
    if constexpr (observed) around = &at.member(step, row.outer, role);
    const Node* const outer = json::find(map, row.outer);
    if (!outer) return role != Role::required || around->miss("object");
    if (outer->kind != json::Kind::object) return around->reject("object", *outer) || role != Role::required;
    return readMember<observed>(row, row.inner, model, *outer, *around);
}

bool readText(const Row& row, std::string_view text, void* model, const Reading& at) {
    Node node;
    node.kind = json::Kind::string;
    node.size = static_cast<std::uint32_t>(text.size());
    node.text = text.data();
    return row.read(node, model, at);
}

template <bool observed>
[[gnu::always_inline]] inline bool readFromDocument(const Row& row, void* model, const Node& map, const Reading& at,
                                                    std::optional<std::string_view> name) {
    if (row.takesName && name) return readText(row, *name, model, at);
    switch (row.origin) {
        case Row::Origin::nowhere: return !row.required;
        case Row::Origin::whole: return map.size == 0 ? at.miss(anyMembers) : row.read(map, model, at);
        case Row::Origin::member: break;
    }
    return row.outer.empty() ? readMember<observed>(row, row.key, model, map, at)
                             : readInside<observed>(row, model, map, at);
}

template <bool observed>
bool readRows(const KeyTable& table, void* model, const Node& map, const Reading& at,
              std::optional<std::string_view> name) {
    for (const Row& row : table.rows) {
        if (!row.read) continue;
        const bool taken = at.form() == Form::document ? readFromDocument<observed>(row, model, map, at, name)
                                                       : readMember<observed>(row, row.key, model, map, at);
        if (!taken) return false;
    }
    return true;
}

/// Whether a row of the document form asks for the member `name` of the model's object, or for `inner` inside it.
bool asksFor(const Row& row, Form form, std::string_view name) {
    if (!row.read) return false;
    if (form == Form::archive) return row.key == name;
    if (row.origin != Row::Origin::member) return row.origin == Row::Origin::whole;
    return (row.outer.empty() ? row.key : row.outer) == name;
}

void tellInsideNotAsked(const KeyTable& table, std::string_view outer, const Node& object, const Reading& at) {
    for (std::uint32_t i = 0; i < object.size; ++i) {
        const std::string_view name = object.name(i).string();
        const auto asks = [&](const Row& row) { return row.outer == outer && row.inner == name; };
        Step step;
        if (std::none_of(table.rows.begin(), table.rows.end(), asks))
            at.member(step, name, Role::field).notAsked(object.value(i));
    }
}

void tellNotAsked(const KeyTable& table, const Node& map, const Reading& at) {
    for (std::uint32_t i = 0; i < map.size; ++i) {
        const std::string_view name = map.name(i).string();
        const Node& value = map.value(i);
        Step step;
        const Reading& here = at.member(step, name, Role::field);
        const auto asks = [&](const Row& row) { return asksFor(row, at.form(), name); };
        const auto asking = std::find_if(table.rows.begin(), table.rows.end(), asks);
        if (asking == table.rows.end())
            here.notAsked(value);
        else if (at.form() == Form::document && !asking->outer.empty() && value.kind == json::Kind::object)
            tellInsideNotAsked(table, name, value, here);
    }
}

}  // namespace

bool read(const KeyTable& table, void* model, const Node& map, const Reading& at,
          std::optional<std::string_view> name) {
    if (!at.observed()) return readRows<false>(table, model, map, at, name);
    if (!readRows<true>(table, model, map, at, name)) return false;
    tellNotAsked(table, map, at);
    return true;
}

void write(const KeyTable& table, const void* model, json::Builder& into) {
    const std::size_t begun = into.begin();
    for (const Row& row : table.rows) row.write(model, row.key, into);
    into.endObject(begun);
}

}  // namespace quorin::table
