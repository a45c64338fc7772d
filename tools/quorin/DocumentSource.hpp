#pragma once

#include "quorin/platform/json/DocumentMap.hpp"
#include "quorin/platform/json/Position.hpp"

#include "Session.hpp"

#include <string>
#include <string_view>
#include <variant>

namespace quorin::tool {

/// A document as it came, before any brand's section is picked.
struct Document {
    std::string text{};
    json::DocumentMap map{};
};

/// Whether the name of a source is a URL and not a path.
bool isURL(std::string_view name);

/// The document at a URL, at a path, or "-" for standard input, or why there is none. Neither the store nor the manager
/// is asked.
std::variant<Document, Failure> documentAt(const std::string& name, const Session& session);

/// The same of a file, or "-"; `called` is what the document is read as.
std::variant<Document, Failure> documentIn(const std::string& file, const std::string& called);

/// Says of a text that it is no JSON, where, why, and what to do about it.
std::string notJSON(json::Position position, const std::string& why);

}  // namespace quorin::tool
