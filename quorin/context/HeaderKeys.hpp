#pragma once

#include <string_view>

namespace quorin {

/// The names of the default HTTP headers.
struct HeaderKeys {
    static constexpr std::string_view userAgent = "User-Agent";
    static constexpr std::string_view appversion = "appversion";
    static constexpr std::string_view userZ = "VEXO-USERTZ";
    static constexpr std::string_view vexoMVPD = "VEXO-MVPD";
    static constexpr std::string_view kova = "KOVA";
};

}  // namespace quorin
