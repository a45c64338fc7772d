#pragma once

#include <string>

#pragma GCC visibility push(default)

namespace quorin::foundation {

/// The machine that the process runs on.
struct Device {
    /// The `machine` field of uname(2), such as "x86_64".
    std::string model{};
    /// The `sysname` field of uname(2), such as "Linux".
    std::string systemName{};
    /// The `release` field of uname(2), such as "6.1.0-18-amd64".
    std::string systemVersion{};

    /// Asks the system at each call; may be called from any thread.
    static Device current();

    bool operator==(const Device&) const = default;
};

}  // namespace quorin::foundation

#pragma GCC visibility pop
