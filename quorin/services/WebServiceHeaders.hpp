#pragma once

#include <string_view>

#pragma GCC visibility push(default)

/// HTTP header names, which are also the members of a service's "header" object and keys of its archived form.
namespace quorin::WebServiceHeaders {

inline constexpr std::string_view accept = "Accept";
inline constexpr std::string_view contentType = "Content-Type";

}  // namespace quorin::WebServiceHeaders

#pragma GCC visibility pop
