#pragma once

#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// The names of cookies.
struct CookieKeys {
    static constexpr std::string_view kova = "KOVA";  ///< carries the account identifier
};

}  // namespace quorin

#pragma GCC visibility pop
