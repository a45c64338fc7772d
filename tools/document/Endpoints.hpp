#pragma once

#include "quorin/table/FindingKind.hpp"

#include <string_view>

namespace quorin::document {

/// What is wrong with the URL of an endpoint; the texts are constants.
struct URLFault {
    const FindingKind* kind = nullptr;  ///< null: nothing is wrong
    std::string_view expected{};
    std::string_view found{};
    std::string_view cost{};
};

/// The first thing that is wrong with `url`, a template whose placeholders
/// stand in braces.
URLFault faultOf(std::string_view url);

}  // namespace quorin::document
