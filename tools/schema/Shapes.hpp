#pragma once

#include "quorin/platform/json/DocumentMap.hpp"
#include "quorin/table/Holding.hpp"

#include <span>
#include <string_view>

namespace quorin::schema {

/// What the readers take for a value of one shape.
struct Shape {
    std::string_view name;   ///< as the key tables call it
    std::string_view takes;  ///< sentences, with code as Markdown marks it

    /// The JSON Schema of exactly these values.
    json::DocumentMap (*schema)(const table::Holding& holds);
};

/// Every shape that a value can have.
std::span<const Shape> shapes();

/// Null when nothing is told of the shape.
const Shape* shapeOf(std::string_view name);

/// What a lenient field says beside its shape: no whole sentence.
inline constexpr std::string_view lenientWords = "a member that is no object is left out alone";

}  // namespace quorin::schema
