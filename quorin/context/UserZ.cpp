#include "quorin/context/UserZ.hpp"

#include "quorin/platform/foundation/TimeZone.hpp"

#include <utility>

namespace quorin {

std::string ConfigurationManagerUtils::generateZ(const Platform& platform) {
    return foundation::utcOffset(platform.clock());
}

std::string UserZ::value(const Platform& platform) {
    if (const auto cached = cached_.get()) return *cached;
    return *cached_.getOr(std::make_shared<const std::string>(ConfigurationManagerUtils::generateZ(platform)));
}

void UserZ::set(std::string value) { cached_.set(std::make_shared<const std::string>(std::move(value))); }

}  // namespace quorin
