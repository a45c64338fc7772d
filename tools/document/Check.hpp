#pragma once

#include "quorin/platform/json/DocumentMap.hpp"

#include "Diagnosis.hpp"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace quorin::document {

/// What a check came to.
struct Checked {
    std::vector<Diagnosis> diagnoses{};  ///< in the order of the text
};

/// Everything in `document`, which was parsed from `text`, that is most likely
/// not meant, for the apps of `brands`: what their readers do not take, and
/// what they take and cannot use. What concerns several brands is told once.
Checked check(const json::DocumentMap& document, std::string_view text, std::span<const Brand> brands);

}  // namespace quorin::document
