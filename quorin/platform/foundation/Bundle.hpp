#pragma once

#include <optional>
#include <string>

#pragma GCC visibility push(default)

namespace quorin::foundation {

/// What the main bundle says about the app. An absent member does not stand in the bundle.
struct Bundle {
    /// "CFBundleName".
    std::optional<std::string> name{};
    /// "CFBundleShortVersionString".
    std::optional<std::string> shortVersion{};

    bool operator==(const Bundle&) const = default;
};

}  // namespace quorin::foundation

#pragma GCC visibility pop
