#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

/// Looking up an enumeration by its raw value. `Enumeration::rawValues` holds the texts in the order of the cases.
namespace quorin::rawvalues {

/// ASCII letters only, whatever the locale.
constexpr char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// True for texts that differ in the case of ASCII letters at most.
constexpr bool sameFolded(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return lower(a) == lower(b); });
}

/// The text with its ASCII letters in lower case; every other byte stays.
inline std::string lowered(std::string_view text) {
    std::string folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(), lower);
    return folded;
}

/// The case whose raw value is the `same` as the text, or empty.
template <class Enumeration, class Same>
constexpr std::optional<Enumeration> find(std::string_view text, Same same) {
    for (std::size_t i = 0; i < Enumeration::rawValues.size(); ++i) {
        if (same(Enumeration::rawValues[i], text)) return static_cast<typename Enumeration::Case>(i);
    }
    return std::nullopt;
}

/// The case with exactly this raw value, or empty.
template <class Enumeration>
constexpr std::optional<Enumeration> exact(std::string_view text) {
    return find<Enumeration>(text, std::equal_to<>{});
}

/// The case with this raw value in any letter case, or empty.
template <class Enumeration>
constexpr std::optional<Enumeration> folded(std::string_view text) {
    return find<Enumeration>(text, sameFolded);
}

}  // namespace quorin::rawvalues

#pragma GCC visibility pop
