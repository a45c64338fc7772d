#pragma once

#include "BrandViews.hpp"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorin::document {

/// How much of a change apps notice, the most first.
enum class Grade : std::uint8_t {
    breaks,     ///< an endpoint or a section vanishes, or a request that apps make today becomes another
    behaviour,  ///< any other value changes, appears or vanishes
    cosmetic,   ///< the documents differ, the values that apps read do not
};

inline constexpr std::size_t grades = 3;

/// The word by which a grade is told.
std::string_view nameOf(Grade grade);

/// One thing that differs for some brands.
struct Change {
    std::string path{};  ///< as `Path` tells it; empty for a cosmetic change, which is one for all
    Grade grade = Grade::behaviour;
    std::string_view why{};  ///< in words, where the grade needs them
    std::optional<json::Value> before{};
    std::optional<json::Value> after{};

    bool operator==(const Change&) const = default;
};

/// All that differs between what the apps of the same brands see of two documents, by grade, then in the order of
/// `walk`. What vanishes or appears as a whole is one change. Elements of lists are compared by position behind those
/// that are equal at both ends.
std::vector<Change> changesBetween(const BrandView& before, const BrandView& after);

/// How many of the changes have a grade.
std::size_t count(std::span<const Change> changes, Grade grade);

/// Whether apps notice nothing: at most cosmetic changes.
bool isUnnoticed(std::span<const Change> changes);

}  // namespace quorin::document
