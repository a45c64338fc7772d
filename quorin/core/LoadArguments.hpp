#pragma once

#include "quorin/model/Brand.hpp"
#include "quorin/table/ReadReport.hpp"

#include <memory>
#include <optional>
#include <string>

#pragma GCC visibility push(default)

namespace quorin {

/// What a load stamps its configuration with: `{.deviceID = "D", .brand = Brand::orvel}`.
struct LoadArguments {
    std::string deviceID{};
    std::optional<Brand> brand{};  ///< whose section is read; absent: the whole document
    std::string version = "1.0.0";

    /// Where to put what the document held that was not taken, each with line and column, before the configuration is
    /// delivered; a load that fails leaves it as it is. It is written on the thread that delivers, so each load that
    /// runs beside another has one of its own, and it is read when the load has ended. Null: nobody wants to know, and
    /// the read is spared the work.
    std::shared_ptr<ReadReport> report{};
};

/// The path of a file, where a text would be taken for a URL.
struct PathURL {
    std::string path{};
};

}  // namespace quorin

#pragma GCC visibility pop
