#pragma once

#include "quorin/platform/json/DocumentMap.hpp"
#include "quorin/table/KeyTable.hpp"

/// JSON Schema, draft 2020-12, of what the key tables read: what is valid reads without a finding but those of members
/// that no reader asks for. A schema speaks of parsed values: what is no JSON text it does not see.
namespace quorin::schema {

/// Of one section in its server form, standing under no name.
json::DocumentMap ofSection(const KeyTable& table);

/// Of a whole document, loaded for any brand or for none.
json::DocumentMap ofDocument();

}  // namespace quorin::schema
