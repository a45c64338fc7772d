#pragma once

#include "quorin/services/ContentType.hpp"

#include <cstdint>
#include <optional>

#pragma GCC visibility push(default)

namespace quorin {

/// The media types as integers.
class KVTContentType {
public:
    enum Case : std::int32_t { undefined = -1, JSON, XML, urlEncoded };

    constexpr KVTContentType(Case value) : case_(value) {}

    /// `undefined` where there is none.
    explicit KVTContentType(std::optional<ContentType> contentType);

    /// From -1 to the last case; empty for any other integer.
    static std::optional<KVTContentType> fromRawValue(std::int64_t rawValue);

    constexpr operator Case() const { return case_; }
    constexpr std::int32_t rawValue() const { return case_; }

    /// The native value. To ask it of `undefined` ends the process.
    std::optional<ContentType> contentType() const;

private:
    Case case_;
};

}  // namespace quorin

#pragma GCC visibility pop
