#pragma once

#include <string>

namespace quorin::foundation {

/// The identifier of the user's locale, such as "en_US", read from the environment at each call: the first of LC_ALL,
/// LC_MESSAGES and LANG that is set and not empty, without its charset (".UTF-8") and modifier ("@euro").
/// "en_US_POSIX" for C and POSIX, where none is set, and for a value that is no identifier (anything but ASCII letters,
/// digits, "_" and "-"), so the result can stand in a header. No other thread may change the environment meanwhile.
std::string currentLocale();

}  // namespace quorin::foundation
