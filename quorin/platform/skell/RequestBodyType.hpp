#pragma once

#include "quorin/platform/foundation/RawValues.hpp"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quorin::skell {

/// How the content of a request's body is written.
class RequestBodyType {
public:
    enum Case : std::uint8_t { JSON, XML, urlEncoded };

    constexpr RequestBodyType(Case value) : case_(value) {}
    constexpr operator Case() const { return case_; }

    /// Exactly one of the raw values, or empty.
    static std::optional<RequestBodyType> fromRawValue(std::string_view text) {
        return rawvalues::exact<RequestBodyType>(text);
    }

    constexpr std::string_view rawValue() const { return rawValues[case_]; }

    static constexpr std::array<std::string_view, 3> rawValues{"JSON", "XML", "urlEncoded"};

private:
    Case case_;
};

}  // namespace quorin::skell
