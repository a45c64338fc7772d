#pragma once

#include "quorin/platform/json/Position.hpp"

#include "BrandViews.hpp"
#include "FieldPath.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorin::document {

/// One step of the way to a value.
struct Link {
    std::string what{};                        ///< "document", "section of orvel", the name of a member
    std::string pointer{};                     ///< JSON Pointer (RFC 6901) in the document
    std::optional<json::Position> position{};  ///< absent for what does not stand in the document
    std::string found{};                       ///< what stands there, in words
};

/// Why apps see a field as they do.
struct Explanation {
    std::optional<json::Value> value{};  ///< as the reader yields it
    std::string reason{};       ///< why there is none, or why it is a default; empty where the document gives it
    std::vector<Link> chain{};  ///< from the document to the caller, up to what is not there
};

/// What the apps of a brand, or those without one, see of the field in a document, which was parsed from `text`.
Explanation explained(const DocumentMap& document, std::string_view text, std::optional<Brand> brand,
                      const FieldPath& field);

}  // namespace quorin::document
