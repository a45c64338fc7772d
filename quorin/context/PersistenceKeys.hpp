#pragma once

#include <string_view>

namespace quorin {

/// The keys under which the identity values stand in the key-value store.
struct PersistenceKeys {
    static constexpr std::string_view kova = "com.vexodigitalMedia.kova";
    static constexpr std::string_view domain = "com.vexodigitalMedia.domain";
    static constexpr std::string_view vexoMVPD = "com.vexodigitalMedia.mvpd";
    static constexpr std::string_view parentProfileID = "com.vexodigitalMedia.parent.profileID";
    static constexpr std::string_view childProfileID = "com.vexodigitalMedia.child.profileID";
    static constexpr std::string_view profileJWT = "com.vexodigitalMedia.profileJWT";
};

}  // namespace quorin
