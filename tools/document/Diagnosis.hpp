#pragma once

#include "quorin/model/Brand.hpp"
#include "quorin/platform/json/Position.hpp"
#include "quorin/table/FindingKind.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorin::document {

/// One place of a document that most likely does not say what its author meant.
struct Diagnosis {
    FindingKind kind{};
    std::string pointer{};                     ///< JSON Pointer (RFC 6901) from the top of the document
    std::optional<json::Position> position{};  ///< of the value there, or of the object around it
    std::string_view expected{};
    std::string_view found{};
    std::string cost{};
    std::string meant{};          ///< what may have been meant; empty where nothing is near
    std::vector<Brand> brands{};  ///< whose apps it concerns

    /// What is wrong, in words: "expected boolean, found string; field absent".
    std::string words() const;

    /// What to do about it, with what may have been meant.
    std::string hint() const;
};

}  // namespace quorin::document
