#pragma once

#include "quorin/platform/skell/HTTPMethod.hpp"

#include <cstdint>
#include <optional>

#pragma GCC visibility push(default)

namespace quorin {

/// The methods of requests as integers.
class KVTHTTPMethod {
public:
    enum Case : std::int32_t { undefined = -1, CONNECT, DELETE, HEAD, OPTIONS, PATCH, POST, PUT, TRACE, GET };

    constexpr KVTHTTPMethod(Case value) : case_(value) {}

    /// `undefined` where there is none.
    explicit KVTHTTPMethod(std::optional<HTTPMethod> httpMethod);

    /// From -1 to the last case; empty for any other integer.
    static std::optional<KVTHTTPMethod> fromRawValue(std::int64_t rawValue);

    constexpr operator Case() const { return case_; }
    constexpr std::int32_t rawValue() const { return case_; }

    /// The native value. To ask it of `undefined` ends the process.
    std::optional<HTTPMethod> httpMethod() const;

private:
    Case case_;
};

}  // namespace quorin

#pragma GCC visibility pop
