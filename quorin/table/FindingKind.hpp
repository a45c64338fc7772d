#pragma once

#include "quorin/table/ReadReport.hpp"

#include <cstdint>
#include <span>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// How much a finding matters.
enum class Severity : std::uint8_t {
    note,     ///< worth a look
    warning,  ///< most likely not what was meant
    error,    ///< something of the document is lost
};

/// The severity in words: "note", "warning" or "error".
std::string_view nameOf(Severity severity);

/// What kind of mistake a finding is. The codes stay the same from version to version.
struct FindingKind {
    std::string_view code{};  ///< "value-in-quotes"
    Severity severity = Severity::error;
    std::string_view hint{};  ///< what to do about it, as a command: "write it without the quotes"

    bool operator==(const FindingKind&) const = default;
};

/// The kinds of what readers tell.
std::span<const FindingKind> findingKinds();

/// The kind of what a reader told: one of `findingKinds`.
const FindingKind& kindOf(const Finding& finding);

}  // namespace quorin

#pragma GCC visibility pop
