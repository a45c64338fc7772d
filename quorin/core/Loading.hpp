#pragma once

#include "quorin/core/LoadArguments.hpp"
#include "quorin/model/Configuration.hpp"
#include "quorin/platform/rx/Result.hpp"

#include <memory>
#include <string>
#include <string_view>

/// From the bytes of a document to a stamped configuration. Nothing here touches a manager.
namespace quorin::loading {

using ConfigurationPointer = std::shared_ptr<const Configuration>;

/// The brand's configuration in `document`, which was parsed from `text`. Fails with an `Oops` record.
rx::Result<ConfigurationPointer> configurationIn(const DocumentMap& document, std::string_view text,
                                                 const LoadArguments& arguments);

/// The same from a file, which is read and parsed first.
rx::Result<ConfigurationPointer> configurationAt(const PathURL& file, const LoadArguments& arguments);

}  // namespace quorin::loading
