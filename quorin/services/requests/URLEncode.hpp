#pragma once

#include "quorin/table/Document.hpp"

#include <optional>
#include <string>

#pragma GCC visibility push(default)

namespace quorin::ConfigurationManagerUtils {

/// The pairs as a query: "key=value" joined with "&", in byte order of the keys. Percent-escaped are blank, text beyond
/// ASCII, and each of "!*'();:@&=+$,/?%#[]"; every other character stands as it is. A pair that is not UTF-8 is left
/// out. Absent where no pair is left. Any thread.
std::optional<std::string> urlEncode(const std::optional<StringMap>& params);

}  // namespace quorin::ConfigurationManagerUtils

#pragma GCC visibility pop
