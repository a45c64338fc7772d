#pragma once

#include "quorin/context/Platform.hpp"

#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin::ConfigurationManagerUtils {

/// The app's user agent: "Sample/2.4(iPhone9,1; cpu iOS 10_3_1 like mac os x; en_us) CFNetwork/15.5.0 Darwin/758.4.3".
/// The last two pieces are taken from `existing` where it has them: its last component, between blanks, that contains
/// "cfnetwork", and its last that contains "darwin", in any ASCII letter case. Nothing else of it is kept. Any thread;
/// where the platform's locale is the standard one, none may change the environment meanwhile.
std::string generateUserAgent(std::optional<std::string_view> existing = {},
                              const Platform& platform = platform::current());

/// The bundle's name, or an empty text when the bundle has none.
std::string appName(const Platform& platform = platform::current());

}  // namespace quorin::ConfigurationManagerUtils

#pragma GCC visibility pop
