#pragma once

#include <string>
#include <string_view>

namespace quorin::foundation {

/// The SHA-256 digest (FIPS 180-4) of the bytes: 64 lower-case hexadecimal digits. May be called from any thread.
std::string sha256Hex(std::string_view bytes);

}  // namespace quorin::foundation
