#pragma once

#include <string>
#include <string_view>

namespace quorin::foundation {

/// The bytes in base64 with padding (RFC 4648 section 4).
std::string base64(std::string_view bytes);

}  // namespace quorin::foundation
