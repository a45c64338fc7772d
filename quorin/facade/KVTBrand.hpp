#pragma once

#include "quorin/model/Brand.hpp"

#include <cstdint>
#include <optional>

#pragma GCC visibility push(default)

namespace quorin {

/// The brands as integers. Hosts know six of them.
class KVTBrand {
public:
    enum Case : std::int32_t { undefined = -1, orvel, caldor, pellow, quintar, tavish, unknown };

    constexpr KVTBrand(Case value) : case_(value) {}

    /// `undefined` where there is none, and for a brand that has no integer.
    explicit KVTBrand(std::optional<Brand> brand);

    /// From -1 to the last case; empty for any other integer.
    static std::optional<KVTBrand> fromRawValue(std::int64_t rawValue);

    constexpr operator Case() const { return case_; }
    constexpr std::int32_t rawValue() const { return case_; }

    /// The native value. To ask it of `undefined` ends the process.
    std::optional<Brand> brand() const;

private:
    Case case_;
};

}  // namespace quorin

#pragma GCC visibility pop
