#pragma once

#include <string_view>

#pragma GCC visibility push(default)

/// The keys under which the identity values stand in the key-value store.
namespace quorin::PersistenceKeys {

inline constexpr std::string_view kova = "com.vexodigitalMedia.kova";
inline constexpr std::string_view domain = "com.vexodigitalMedia.domain";
inline constexpr std::string_view vexoMVPD = "com.vexodigitalMedia.mvpd";
inline constexpr std::string_view parentProfileID = "com.vexodigitalMedia.parent.profileID";
inline constexpr std::string_view childProfileID = "com.vexodigitalMedia.child.profileID";
inline constexpr std::string_view profileJWT = "com.vexodigitalMedia.profileJWT";

}  // namespace quorin::PersistenceKeys

#pragma GCC visibility pop
