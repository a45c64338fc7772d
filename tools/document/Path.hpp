#pragma once

#include "quorin/platform/json/Value.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quorin::document {

/// One step to a value and, through `outer`, all before it; put in words only where it is told. What it points to
/// outlives it.
struct Path {
    const Path* outer = nullptr;
    std::string_view name{};             ///< of a member
    std::optional<std::size_t> index{};  ///< of an element, which has no name

    /// "videoPlayer.ads.freeTime", "groups[0].title". A name of other characters than ASCII letters, digits, "-" and
    /// "_" stands as JSON text: `features["a b"].on`. One of more than `longestName` characters is cut there, so that
    /// many fields below it stay cheap to tell.
    std::string text() const;

    static constexpr std::size_t longestName = 80;
};

/// A JSON Pointer as it is shown: the empty one is "the whole document".
std::string_view called(std::string_view pointer);

/// The first characters of `text`, which is UTF-8, and "…" where there are more than `count`.
std::string beginning(std::string_view text, std::size_t count);

/// A value as it is shown: canonical JSON on one line, which tells 5 from "5".
std::string shown(const json::Value& value);

/// The same, at most `count` characters of it.
std::string shownShortly(const json::Value& value, std::size_t count);

}  // namespace quorin::document
