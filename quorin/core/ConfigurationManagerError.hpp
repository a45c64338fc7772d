#pragma once

#include "quorin/platform/foundation/RawValues.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// Named kinds of errors for hosts. The library's own operations end with an `Oops` record and never with one of these.
class ConfigurationManagerError {
public:
    enum Case : std::uint8_t {
        invalidConfigurationParams,
        invalidConfigurationResponse,
        initializationError,
        notInitialized,
        invalidBrand,
        invalidParams,
        unsupportedMethod,
    };

    constexpr ConfigurationManagerError(Case value) : case_(value) {}
    constexpr operator Case() const { return case_; }

    /// Exactly one of the raw values, or empty.
    static std::optional<ConfigurationManagerError> fromRawValue(std::string_view text) {
        return rawvalues::exact<ConfigurationManagerError>(text);
    }

    constexpr std::string_view rawValue() const { return rawValues[case_]; }
    constexpr std::size_t hashValue() const { return case_; }

    /// The type's name, by which hosts tell errors of different sources apart, and the position of the case, 0 to 6.
    static constexpr std::string_view domain() { return errorName; }
    constexpr int code() const { return case_; }

    /// A host may end streams of its own with it.
    static constexpr std::string_view errorName = "QuorinConfigManager.ConfigurationManagerError";
    std::string description() const { return std::string(rawValue()); }

    static constexpr std::array<std::string_view, 7> rawValues{"invalidConfigurationParams",
                                                               "invalidConfigurationResponse",
                                                               "initializationError",
                                                               "notInitialized",
                                                               "invalidBrand",
                                                               "invalidParams",
                                                               "unsupportedMethod"};

private:
    Case case_;
};

}  // namespace quorin

template <>
struct std::hash<quorin::ConfigurationManagerError> {
    std::size_t operator()(quorin::ConfigurationManagerError error) const noexcept { return error.hashValue(); }
};

#pragma GCC visibility pop
