#include "quorin/platform/json/Scan.hpp"

#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/json/UTF8.hpp"

namespace quorin::json {

std::string_view withoutMark(std::string_view text) {
    return text.substr(text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0);
}

std::optional<std::string> nameIn(std::string_view quoted) {
    if (quoted.size() < 2) return std::nullopt;
    if (quoted.find('\\') == quoted.npos) return std::string(quoted.substr(1, quoted.size() - 2));
    const ParseResult name = parse(quoted);
    if (!name) return std::nullopt;
    return std::string(name.value()->node().string());
}

}  // namespace quorin::json
