#include "quorin/platform/foundation/Locale.hpp"

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace quorin::foundation {
namespace {

constexpr std::string_view posixLocale = "en_US_POSIX";

std::string_view localeSetting() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(name);
        if (value && *value) return value;
    }
    return {};
}

constexpr bool standsInIdentifier(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
}

}  // namespace

std::string currentLocale() {
    const std::string_view setting = localeSetting();
    const std::string_view identifier = setting.substr(0, setting.find_first_of(".@"));
    const bool wellFormed = std::all_of(identifier.begin(), identifier.end(), standsInIdentifier);
    if (identifier.empty() || identifier == "C" || identifier == "POSIX" || !wellFormed) {
        return std::string(posixLocale);
    }
    return std::string(identifier);
}

}  // namespace quorin::foundation
