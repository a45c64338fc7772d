#pragma once

#include "quorin/platform/ombrith/InstrumentationCodes.hpp"

#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// The record that a failing stream of the library ends with: `Oops(component, element, errorCode, message)`.
struct Oops {
    /// One of `InstrumentationCodes::Component`.
    int component = 0;
    /// One of `InstrumentationCodes::Element`.
    int element = 0;
    /// One of `InstrumentationCodes::ErrorCode`.
    int errorCode = 0;
    /// Absent unless the place that raised the record has words of its own.
    std::optional<std::string> message{};

    static constexpr std::string_view errorName = "Oops";

    /// One line for people: the names of the three codes, then the message where there is one, such as
    /// "configurationManager: default: jsonParsing: Model failed to initialize". Control characters become blanks.
    std::string description() const;

    bool operator==(const Oops&) const = default;
};

}  // namespace quorin

#pragma GCC visibility pop
