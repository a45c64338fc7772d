#pragma once

#include <string>

namespace quorin::foundation {

/// A new random UUID (RFC 4122, version 4) as text: 36 characters, upper-case hexadecimal digits in groups of
/// 8-4-4-4-12. Never fails; may be called from any thread.
std::string randomUUID();

}  // namespace quorin::foundation
