#pragma once

#include "quorin/context/Platform.hpp"
#include "quorin/core/LoadReport.hpp"
#include "quorin/platform/json/DocumentMap.hpp"
#include "quorin/platform/morr/Status.hpp"

#include <memory>
#include <string>

#pragma GCC visibility push(default)

namespace quorin {

/// What support needs to know of an app's configuration: which library and app on which device, whether identity values
/// are kept, what was loaded last and what failed last. No identity value, header or cookie is in it, and no user info,
/// query or fragment of a URL.
struct SupportCard {
    foundation::Bundle app{};
    foundation::Device device{};
    std::string locale{};
    morr::Status store{};
    std::shared_ptr<const LoadReport> load{};    ///< null when nothing is loaded
    std::shared_ptr<const LoadReport> failed{};  ///< null when no load failed

    /// Ten lines, each of a label, a colon and facts: UTF-8 without control characters, which a terminal only shows.
    std::string text() const;

    /// The same facts under names; null for what there is not.
    DocumentMap json() const;
};

}  // namespace quorin

#pragma GCC visibility pop
