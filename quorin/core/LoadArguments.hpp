#pragma once

#include "quorin/model/Brand.hpp"

#include <optional>
#include <string>

#pragma GCC visibility push(default)

namespace quorin {

/// What a load stamps its configuration with, and how much its report tells: `{.deviceID = "D", .brand =
/// Brand::orvel}`. A load whose memory ends leaves no report.
struct LoadArguments {
    std::string deviceID{};
    std::optional<Brand> brand{};  ///< whose section is read; absent: the whole document
    std::string version = "1.0.0";

    /// Whether the load's report tells what the document held that was not taken, each with line and column. Where
    /// nobody wants to know, the read is spared the work.
    bool findings = false;
};

/// The path of a file, where a text would be taken for a URL.
struct PathURL {
    std::string path{};
};

}  // namespace quorin

#pragma GCC visibility pop
