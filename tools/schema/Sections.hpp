#pragma once

#include "quorin/table/Document.hpp"
#include "quorin/table/KeyTable.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace quorin::schema {

/// What a schema refers to: each section under the name of its type, and each shape of a plain value.
using Definitions = MapOf<json::Value>;

/// Members of an object: what each must be, and which must be there. Their keys are those of the key tables.
struct Members {
    std::vector<json::DocumentMap::Member> properties{};
    std::vector<json::Value> required{};

    void add(std::string_view key, const json::Value& schema, bool isRequired);

    /// `schema`, saying this too.
    json::DocumentMap addedTo(json::DocumentMap schema) const;
};

/// Adds the definition of a section in its server form, and of all that it refers to. It says nothing of the members
/// for which the section takes its own name.
void define(const KeyTable& table, Definitions& definitions);

/// The members that a section is asked for where it stands under no name, beside those of its definition.
Members insteadOfName(const KeyTable& table);

/// What a section is for, as a sentence.
std::string sentenceOn(const KeyTable& table);

}  // namespace quorin::schema
