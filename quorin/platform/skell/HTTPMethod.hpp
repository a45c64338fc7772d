#pragma once

#include "quorin/platform/foundation/RawValues.hpp"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// The methods of the request library, in its order.
class HTTPMethod {
public:
    enum Case : std::uint8_t { CONNECT, DELETE, HEAD, OPTIONS, PATCH, POST, PUT, TRACE, GET };

    constexpr HTTPMethod(Case value) : case_(value) {}
    constexpr operator Case() const { return case_; }

    /// Exactly one of the raw values, or empty.
    static std::optional<HTTPMethod> fromRawValue(std::string_view text) { return rawvalues::exact<HTTPMethod>(text); }

    /// One of the raw values in any letter case, or empty.
    static std::optional<HTTPMethod> matching(std::string_view text) { return rawvalues::folded<HTTPMethod>(text); }

    constexpr std::string_view rawValue() const { return rawValues[case_]; }

    static constexpr std::string_view shape = "HTTP method";
    static constexpr std::array<std::string_view, 9> rawValues{"CONNECT", "DELETE", "HEAD",  "OPTIONS", "PATCH",
                                                               "POST",    "PUT",    "TRACE", "GET"};

private:
    Case case_;
};

}  // namespace quorin

#pragma GCC visibility pop
