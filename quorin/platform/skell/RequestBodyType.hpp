#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin::skell {

/// How the content of a request's body is written.
class RequestBodyType {
public:
    enum Case : std::uint8_t { JSON, XML, urlEncoded };

    constexpr RequestBodyType(Case value) : case_(value) {}
    constexpr operator Case() const { return case_; }

    constexpr std::string_view rawValue() const { return rawValues[case_]; }

    static constexpr std::array<std::string_view, 3> rawValues{"JSON", "XML", "urlEncoded"};

private:
    Case case_;
};

}  // namespace quorin::skell

#pragma GCC visibility pop
