#include "tools/schema/Sections.hpp"

#include "tools/schema/Reference.hpp"
#include "tools/schema/Shapes.hpp"

#include <algorithm>
#include <map>
#include <string>

namespace quorin::schema {
namespace {

using json::DocumentMap;
using json::Value;
using table::Row;

/// Sentences with code in Markdown, as plain text.
std::string plain(std::string_view words) {
    std::string text(words);
    std::erase(text, '`');
    return text;
}

/// A name without blanks, which a reference would have to escape.
std::string nameOf(const Shape& shape) {
    std::string name(shape.name);
    std::replace(name.begin(), name.end(), ' ', '-');
    return name;
}

DocumentMap definitionOf(const Row& row, const Shape& shape) {
    return shape.schema(*row.holds).with("title", shape.name).with("description", plain(shape.takes));
}

DocumentMap holdingSections(const Row& row, const Shape& shape) {
    DocumentMap schema = shape.schema(*row.holds);
    if (schema.contains("$ref")) return schema;
    const std::string more = row.lenient ? " Here " + std::string(lenientWords) + "." : "";
    return schema.with("description", plain(shape.takes) + more);
}

DocumentMap fieldOf(const KeyTable& table, const Row& row) {
    const Shape* const shape = shapeOf(row.holds->shape);
    if (!shape) return {};
    const DocumentMap schema = row.holds->section ? holdingSections(row, *shape) : referenceTo(nameOf(*shape));
    const auto initial = row.defaulted ? table.initial().find(row.key) : std::nullopt;
    return initial ? schema.with("default", *initial) : schema;
}

bool isMember(const Row& row) { return row.read && row.origin == Row::Origin::member; }

/// What the section's object is asked for: what may also come from the name it stands under, or all else.
Members membersOf(const KeyTable& table, bool orFromName) {
    Members members;
    std::map<std::string_view, Members> inside;
    for (const Row& row : table.rows) {
        if (!isMember(row) || row.takesName != orFromName) continue;
        Members& around = row.outer.empty() ? members : inside[row.outer];
        around.add(row.outer.empty() ? row.key : row.inner, fieldOf(table, row), row.required && !row.defaulted);
    }
    for (const auto& [outer, inner] : inside)
        members.add(outer, inner.addedTo({{"type", "object"}}), !inner.required.empty());
    return members;
}

DocumentMap definitionOf(const KeyTable& table) {
    const DocumentMap schema{{"type", "object"}, {"title", table.name}, {"description", sentenceOn(table)}};
    const auto isWhole = [](const Row& row) { return row.origin == Row::Origin::whole; };
    const bool wantsMembers = std::any_of(table.rows.begin(), table.rows.end(), isWhole);
    return membersOf(table, false).addedTo(wantsMembers ? schema.with("minProperties", 1) : schema);
}

}  // namespace

void Members::add(std::string_view key, const Value& schema, bool isRequired) {
    properties.emplace_back(key, schema);
    if (isRequired) required.emplace_back(key);
}

DocumentMap Members::addedTo(DocumentMap schema) const {
    if (!properties.empty()) schema = schema.with("properties", DocumentMap(properties));
    if (!required.empty()) schema = schema.with("required", json::List(required));
    return schema;
}

void define(const KeyTable& table, Definitions& definitions) {
    if (!definitions.emplace(table.name, definitionOf(table)).second) return;
    for (const Row& row : table.rows) {
        const Shape* const shape = shapeOf(row.holds->shape);
        if (row.holds->section)
            define(row.holds->section(), definitions);
        else if (isMember(row) && shape)
            definitions.emplace(nameOf(*shape), definitionOf(row, *shape));
    }
}

Members insteadOfName(const KeyTable& table) { return membersOf(table, true); }

std::string sentenceOn(const KeyTable& table) { return std::string(table.purpose) + "."; }

}  // namespace quorin::schema
