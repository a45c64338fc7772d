#include "Path.hpp"

#include "quorin/platform/json/Print.hpp"

#include <algorithm>

namespace quorin::document {
namespace {

bool isPlain(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
}

bool isPlainName(std::string_view name) {
    return !name.empty() && name.size() <= Path::longestName && std::all_of(name.begin(), name.end(), isPlain);
}

}  // namespace

std::string Path::text() const {
    std::string text = outer ? outer->text() : "";
    if (index) return text + "[" + std::to_string(*index) + "]";
    if (!isPlainName(name)) return text + "[" + shown(beginning(name, longestName)) + "]";
    if (outer) text += '.';
    return text += name;
}

std::string_view called(std::string_view pointer) { return pointer.empty() ? "the whole document" : pointer; }

std::string beginning(std::string_view text, std::size_t count) {
    std::size_t end = 0;
    for (; end < text.size(); ++end) {
        const bool begins = (static_cast<unsigned char>(text[end]) & 0xC0U) != 0x80U;
        if (begins && count-- == 0) return std::string(text.substr(0, end)) + "…";
    }
    return std::string(text);
}

std::string shown(const json::Value& value) { return json::print(value); }

std::string shownShortly(const json::Value& value, std::size_t count) { return beginning(shown(value), count); }

}  // namespace quorin::document
