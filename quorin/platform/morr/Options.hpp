#pragma once

#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin::morr {

/// The path of a store that keeps nothing beyond its own life.
inline constexpr std::string_view memoryPath = ":memory:";

/// Where a store keeps its values.
struct Options {
    /// The database file; a relative path counts from the working folder at the first use. What is missing of it is
    /// made: directories with mode 0700, the file with 0600. `memoryPath` is no file.
    std::string path{memoryPath};
    /// Renames a damaged file to `NAME.damaged-TIMESTAMP` (UTC) and begins a new one. Otherwise a damaged file stays as
    /// it is, and the store works in memory.
    bool setAsideDamaged = true;
};

}  // namespace quorin::morr

#pragma GCC visibility pop
