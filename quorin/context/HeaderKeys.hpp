#pragma once

#include <string_view>

#pragma GCC visibility push(default)

/// The names of the default HTTP headers.
namespace quorin::HeaderKeys {

inline constexpr std::string_view userAgent = "User-Agent";
inline constexpr std::string_view appversion = "appversion";
inline constexpr std::string_view userZ = "VEXO-USERTZ";
inline constexpr std::string_view vexoMVPD = "VEXO-MVPD";
inline constexpr std::string_view kova = "KOVA";

}  // namespace quorin::HeaderKeys

#pragma GCC visibility pop
