#include "quorin/platform/json/UTF8.hpp"

#include <simdjson.h>

#include <algorithm>

namespace quorin::json {
namespace {

/// Bytes of the well-formed sequence at the front of `text`, or zero.
std::size_t sequenceAt(std::string_view text) {
    for (std::size_t size = 1; size <= std::min<std::size_t>(4, text.size()); ++size) {
        if (isUTF8(text.substr(0, size))) return size;
    }
    return 0;
}

}  // namespace

bool isUTF8(std::string_view text) { return simdjson::validate_utf8(text.data(), text.size()); }

std::string repairedUTF8(std::string_view text) {
    std::string repaired;
    while (!text.empty()) {
        const std::size_t size = sequenceAt(text);
        if (size > 0)
            repaired += text.substr(0, size);
        else
            repaired += "\xEF\xBF\xBD";
        text.remove_prefix(std::max<std::size_t>(size, 1));
    }
    return repaired;
}

}  // namespace quorin::json
