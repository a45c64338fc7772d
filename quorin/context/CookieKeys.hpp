#pragma once

#include <string_view>

namespace quorin {

/// The names of cookies.
struct CookieKeys {
    static constexpr std::string_view kova = "KOVA";  ///< carries the account identifier
};

}  // namespace quorin
